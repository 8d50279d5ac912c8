#pragma once

namespace platform {

// Makes presentation containers modal dialogs to assistive tools, named as their accessible name says. May be
// called any number of times.
void describeAsDialogs();

} // namespace platform
