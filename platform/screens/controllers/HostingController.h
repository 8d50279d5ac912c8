#pragma once

#include "platform/screens/controllers/ViewController.h"

namespace platform {

// A screen whose whole content is one view.
class HostingController : public ViewController {
    Q_OBJECT

public:
    explicit HostingController(std::unique_ptr<QWidget> rootView, QWidget* parent = nullptr);

    QWidget& rootView() { return *m_rootView; }

private:
    QWidget* m_rootView;
};

} // namespace platform
