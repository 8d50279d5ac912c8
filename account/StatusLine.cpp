#include "account/StatusLine.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace account {

namespace {

constexpr int dotSize = 10;

} // namespace

class StatusLine::Dot : public QWidget {
public:
    explicit Dot(QWidget* parent)
        : QWidget(parent) {
        setFixedSize(dotSize, dotSize);
    }

    void setAsset(platform::Asset asset) {
        m_asset = asset;
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(platform::color(m_asset));
        painter.drawEllipse(rect());
    }

private:
    platform::Asset m_asset = platform::Asset::SystemGray;
};

StatusLine::StatusLine(const QString& accessibleName, QWidget* parent)
    : QWidget(parent)
    , m_dot(new Dot(this))
    , m_text(new QLabel(this)) {
    m_text->setTextFormat(Qt::PlainText); // a server's words are in it
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setAccessibleName(accessibleName);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    // In line with the middle of the first line of text.
    const int above = (m_text->fontMetrics().height() - dotSize + 1) / 2;
    auto* dotColumn = new QVBoxLayout;
    dotColumn->setContentsMargins(0, above, 0, 0);
    dotColumn->addWidget(m_dot);
    row->addLayout(dotColumn);
    row->setAlignment(dotColumn, Qt::AlignTop);
    row->addWidget(m_text, 1);
    clear();
}

void StatusLine::show(platform::Asset dot, const QString& text) {
    m_dot->setAsset(dot);
    m_text->setText(text);
    m_text->setAccessibleDescription(text);
    setVisible(true);
    updateGeometry(); // at once, for who asks for the height of the whole next
}

void StatusLine::clear() {
    m_text->clear();
    setVisible(false);
}

QString StatusLine::text() const {
    return m_text->text();
}

} // namespace account
