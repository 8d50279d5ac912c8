#include "platform/screens/appearance/Palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace platform;

namespace {

// Relative luminance and contrast as the guidelines for accessible content define them.
double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

constexpr double ofText = 4.5;
constexpr double ofSymbols = 3;

struct Pair {
    Asset on;
    Asset below;
    double least;
};

std::vector<Pair> pairs() {
    std::vector<Pair> pairs{{Asset::OnAccent, Asset::Accent, ofText},
                            {Asset::OnAccent, Asset::SystemRed, ofText}};
    for (const Asset below : {Asset::BackgroundGrey, Asset::Card, Asset::AshgroveWhite, Asset::Selection}) {
        for (const Asset on :
             {Asset::Text, Asset::TextSecondary, Asset::Accent, Asset::HalcyonixBlue, Asset::SystemRed})
            pairs.push_back({on, below, ofText});
        for (const Asset on : {Asset::KindaGreen, Asset::BlueStart, Asset::GreenStart, Asset::Purple,
                               Asset::SystemYellow, Asset::SystemOrange, Asset::SystemPink, Asset::SystemGray,
                               Asset::SystemBlack, Asset::IconColor})
            pairs.push_back({on, below, ofSymbols});
    }
    return pairs;
}

TEST(PaletteTest, EverythingIsSeenOnWhatItStandsOn) {
    for (const auto appearance : {Appearance::Light, Appearance::Dark}) {
        for (const auto& [on, below, least] : pairs())
            EXPECT_GE(contrast(color(on, appearance), color(below, appearance)), least)
                << "asset " << static_cast<int>(on) << " on " << static_cast<int>(below)
                << (appearance == Appearance::Dark ? ", dark" : ", light");
        for (const auto below :
             {Asset::GradientStart, Asset::GradientEnd, Asset::ActiveOrange, Asset::KindaDarkThing})
            EXPECT_GE(contrast(Qt::white, color(below, appearance)), ofText);
        EXPECT_GE(
            contrast(color(Asset::KindaDarkThing, appearance), color(Asset::BackgroundGrey, appearance)),
            ofSymbols);
    }
}

} // namespace
