// What a program needs to have the engine in a window of its own: the widget, and the engine.
#pragma once

#include "Tessarine/Tessarine.h"
#include "Tessarine/view/QtTextView.h"
