#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QScrollArea>

#include <memory>

class QVBoxLayout;

namespace platform {

// A scrolling column of sections: a heading, and a rounded card with widgets. As the rows of ListView look,
// for content that is no list of rows. What gets the focus is scrolled into view. Main thread.
class GroupedForm : public QScrollArea {
    Q_OBJECT

public:
    explicit GroupedForm(QWidget* parent = nullptr);
    ~GroupedForm() override;

    // The card of a new section at the end, to be filled. A heading or footer that is empty is left out.
    QVBoxLayout& addSection(const QString& heading, const QString& footer = {});
    // Something between sections, without a card.
    void addWidget(std::unique_ptr<QWidget> widget);

    // What the sections are painted on.
    Asset cardColor = Asset::Card;

private:
    void showFocus(QWidget* before, QWidget* now);

    QVBoxLayout* m_column;
};

} // namespace platform
