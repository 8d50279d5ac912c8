#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QRgb>

#include <optional>
#include <vector>

namespace platform::highlight {

// What one rule says; an absent value says nothing.
struct Style {
    std::optional<QRgb> color;
    std::optional<QRgb> background;
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> underline;
};

// One part of a selector between combinators: an element has to have all its classes.
struct Compound {
    QStringList classes;
    bool isChild = false; // of the part before, not any descendant
};

struct Rule {
    std::vector<Compound> selector;
    Style style;
};

// The rules of a theme's CSS file that speak of code, weakest first. Everything else in the file is passed
// over: media queries, states, gradients, whatever is broken. Never fails.
std::vector<Rule> parseStyleSheet(const QString& css);

} // namespace platform::highlight
