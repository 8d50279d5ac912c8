#pragma once

#include "platform/screens/sharing/ShareItem.h"

#include <QtWidgets/QWidget>

namespace platform {

// One line of what is about to be shared: the picture, small, its name, and of a text the first line. Main
// thread.
class SharePreview : public QWidget {
    Q_OBJECT

public:
    explicit SharePreview(const ShareItem& item, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    QString m_firstLine; // may be empty
    QImage m_thumbnail;  // may be null
};

} // namespace platform
