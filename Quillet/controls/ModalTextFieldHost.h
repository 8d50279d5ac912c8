#pragma once

#include "Quillet/controls/ModalTextFieldView.h"
#include "platform/screens/controllers/HostingController.h"

namespace quillet {

// A screen that asks for one text: a popover in a wide window, a sheet in a narrow one. Main thread.
class ModalTextFieldHost : public platform::ViewController {
    Q_OBJECT

public:
    using OnEnter = std::function<void(const QString& text)>;

    ModalTextFieldHost(const ModalTextFieldView::Texts& texts, OnEnter onEnter);

    // In a navigation controller of its own, over `presenter`.
    static void present(platform::ViewController& presenter, const ModalTextFieldView::Texts& texts,
                        OnEnter onEnter);

    platform::HostingController& modalTextFieldHostingController() { return *m_hosting; }

private:
    platform::HostingController* m_hosting;
};

} // namespace quillet
