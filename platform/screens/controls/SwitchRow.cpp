#include "platform/screens/controls/SwitchRow.h"

#include "platform/screens/style/Metrics.h"

namespace platform {

namespace {

constexpr int leastLetters = 8; // in a line

} // namespace

SwitchRow::SwitchRow(const QString& text, QWidget* parent)
    : QCheckBox(text, parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize SwitchRow::minimumSizeHint() const {
    return {besideText() + leastLetters * fontMetrics().averageCharWidth(), heightOf(fontMetrics())};
}

int SwitchRow::heightForWidth(int width) const {
    const QRect room(0, 0, width - besideText(), QWIDGETSIZE_MAX);
    const int lines =
        fontMetrics().boundingRect(room, Qt::TextShowMnemonic | Qt::TextWordWrap, text()).height();
    return std::max(heightOf(fontMetrics()), lines + 16);
}

int SwitchRow::besideText() const {
    return sizeHint().width() - fontMetrics().size(Qt::TextShowMnemonic, text()).width();
}

} // namespace platform
