#pragma once

#include <QtWidgets/QStyle>

class QStyleOptionComboBox;
class QStyleOptionComplex;

namespace platform::style {

// The card-coloured body of a text field, with a ring in the accent while it has the focus.
void drawField(const QStyleOption& option, QPainter& painter);

// Where the text of a field is, in `rect`.
QRect fieldContents(const QRect& rect);
QSize fieldSize(const QStyleOption& option, QSize contents);

void drawComboBox(const QStyleOptionComboBox& option, QPainter& painter);
QRect comboBoxPart(const QStyleOptionComplex& option, QStyle::SubControl part);
QSize comboBoxSize(const QStyleOption& option, QSize contents);

} // namespace platform::style
