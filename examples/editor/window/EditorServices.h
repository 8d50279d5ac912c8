#pragma once

#include "Tessarine/view/QtMainExecutor.h"
#include "Tessarine/view/QtTextMeasurer.h"
#include "examples/editor/files/BackgroundWork.h"
#include "examples/editor/window/EditorSettings.h"

#include <memory>

namespace tessarine::editor {

// What all pages share. It outlives them.
struct EditorServices {
    const std::shared_ptr<QtMainExecutor> mainExecutor = std::make_shared<QtMainExecutor>();
    const std::shared_ptr<const QtTextMeasurer> measurer = std::make_shared<QtTextMeasurer>();
    EditorSettings settings;
    BackgroundWork fileWork{"files", mainExecutor}; // last: it ends before what it uses
};

} // namespace tessarine::editor
