#pragma once

#include "platform/screens/controllers/ViewController.h"

namespace platform {

struct AlertAction {
    enum class Style { Default, Cancel, Destructive };

    QString title;
    Style style = Style::Default;
    std::function<void()> handler; // runs when the alert is gone
};

// A short question or notice over the window, which has to be answered. Escape is the cancelling action, or
// the only one. The focus is on the action that destroys nothing. Presented by whoever it concerns; main
// thread.
class AlertController : public ViewController {
    Q_OBJECT

public:
    AlertController(const QString& title, const QString& message);

    void addAction(AlertAction action);

    void cancelPresentation() override;

private:
    std::vector<AlertAction> m_actions;
};

// An alert with one action that only closes it.
void showAlert(ViewController& over, const QString& title, const QString& message, const QString& action);

} // namespace platform
