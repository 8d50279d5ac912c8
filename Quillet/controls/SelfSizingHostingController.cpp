#include "Quillet/controls/SelfSizingHostingController.h"

namespace quillet {

void SelfSizingHostingController::viewDidLayoutSubviews() {
    updateGeometry();
}

} // namespace quillet
