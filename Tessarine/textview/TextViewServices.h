#pragma once

#include "Tessarine/base/MainExecutor.h"
#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/base/TimerScheduler.h"
#include "Tessarine/layout/TextShaper.h"

#include <memory>

namespace tessarine {

// What a text view needs of its host to exist. None is null.
struct TextViewServices {
    std::shared_ptr<const TextShaper> textShaper;
    std::shared_ptr<const TextMeasurer> textMeasurer;
    std::shared_ptr<TimerScheduler> timerScheduler;
    std::shared_ptr<MainExecutor> mainExecutor;
};

} // namespace tessarine
