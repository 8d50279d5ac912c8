#pragma once

#include "platform/screens/controllers/HostingController.h"

namespace quillet {

// A hosting controller that is as large as what it hosts: each layout tells the container around it to ask
// for the size again.
class SelfSizingHostingController : public platform::HostingController {
    Q_OBJECT

public:
    using HostingController::HostingController;

protected:
    void viewDidLayoutSubviews() override;
};

} // namespace quillet
