#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <functional>
#include <vector>

namespace platform {

class AlertButton;

struct AlertAction {
    enum class Style { Default, Cancel, Destructive };

    QString title;
    Style style = Style::Default;
    std::function<void()> handler; // runs when the alert is gone
};

// A short question or notice over the window, which has to be answered. Escape is the cancelling action, or
// the only one. The focus is on the cancelling action, else on the first that destroys nothing. Presented by
// whoever it concerns, and gone once it is answered; main thread.
class AlertController : public ViewController {
    Q_OBJECT

public:
    AlertController(const QString& title, const QString& message);

    void addAction(AlertAction action);

    void cancelPresentation() override;

protected:
    void viewDidLoad() override; // the actions stand then
    void keyPressEvent(QKeyEvent* event) override;

private:
    const AlertAction* preferredAction() const;
    void layOutButtons();
    void choose(const AlertAction& action);
    bool fitBesideEachOther() const;

    std::vector<AlertAction> m_actions;
    std::vector<AlertButton*> m_buttons; // in the order in which they lie
    bool m_isAnswered = false;
};

// An alert with one action that only closes it.
void showAlert(ViewController& over, const QString& title, const QString& message, const QString& action);

} // namespace platform
