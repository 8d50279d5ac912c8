#pragma once

#include "Quillet/core/CoreDataStack.h"

#include <QtWidgets/QLabel>

namespace quillet {

// Says on top of the window that the library could not be opened, or that the last save did not reach the
// disk, for as long as that is so. Hidden otherwise. Main thread.
class HealthBanner : public QLabel {
    Q_OBJECT

public:
    explicit HealthBanner(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeColors();
    void tell(const CoreDataStack::Health& health);

    platform::Subscription m_subscription;
};

} // namespace quillet
