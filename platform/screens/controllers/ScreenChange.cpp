#include "platform/screens/controllers/ScreenChange.h"

#include "platform/screens/appearance/Motion.h"
#include "platform/screens/controllers/AppearanceTracker.h"
#include "platform/screens/controllers/FocusScope.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtWidgets/QApplication>

#include <memory>

namespace platform {

void run(ScreenChange change) {
    auto& [view, from, to, way, animated, settle, done] = change;
    const bool slides = animated == Animated::Yes && view.isVisible() && !reducesMotion();
    const bool hadFocus = view.isAncestorOf(QApplication::focusWidget());
    const QPixmap before = slides ? view.grab() : QPixmap();
    auto going = std::make_shared<AppearanceTracker::Hold>(from, animated);
    auto coming = std::make_shared<AppearanceTracker::Hold>(to, animated);
    AppearanceTracker::leave(from);
    to.show();
    if (hadFocus) focusInto(to);
    from.hide();
    settle();
    auto finish = [going = std::move(going), coming = std::move(coming), done = std::move(done)]() mutable {
        going.reset();
        coming.reset();
        if (done) done();
    };
    if (slides)
        PictureSlide::run(view, before, way, std::move(finish));
    else
        finish();
}

} // namespace platform
