#pragma once

#include "Quillet/core/Tag.h"

#include <QtWidgets/QLabel>

#include <memory>

namespace quillet {

// A tag in its colour. It says something and does nothing. Main thread.
class TagChip : public QLabel {
    Q_OBJECT

public:
    explicit TagChip(std::shared_ptr<Tag> tag, QWidget* parent = nullptr);

    const std::shared_ptr<Tag>& tag() const { return m_tag; }

    // Takes on the tag's title and colour of now. One that is not in the table of colours draws no border.
    void refresh();

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::shared_ptr<Tag> m_tag;
};

} // namespace quillet
