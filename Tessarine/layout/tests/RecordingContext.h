#pragma once

#include "Tessarine/layout/DrawContext.h"

#include <sstream>
#include <string>
#include <vector>

namespace tessarine {

// Writes down what is drawn.
class RecordingContext final : public DrawContext {
public:
    std::vector<std::string> calls;

    void saveState() override { calls.emplace_back("save"); }

    void restoreState() override { calls.emplace_back("restore"); }

    void setFillColor(const Color& color) override {
        const RGBAColor value = color.resolved(UserInterfaceStyle::Light);
        note("color ", int{value.red}, ' ', int{value.green}, ' ', int{value.blue});
    }

    void fillRect(const Rect& rect) override { note("rect ", text(rect)); }

    void fillRoundedRect(const Rect& rect, double cornerRadius) override {
        note("rounded ", text(rect), " by ", cornerRadius);
    }

    void drawLine(const TextLine& line, const Point& baseline) override {
        note("line ", line.stringRange().location, '+', line.stringRange().length, " at ", baseline.x, ' ',
             baseline.y);
    }

    // Of ASCII.
    void drawText(std::u16string_view string, const Font& font, const Color& /*color*/,
                  const Rect& rect) override {
        note("text ", std::string(string.begin(), string.end()), ' ', font.pointSize, ' ', text(rect));
    }

private:
    static std::string text(const Rect& rect) {
        std::ostringstream stream;
        stream << '(' << rect.x << ' ' << rect.y << ' ' << rect.width << ' ' << rect.height << ')';
        return stream.str();
    }

    template <class... Parts>
    void note(const Parts&... parts) {
        std::ostringstream stream;
        (stream << ... << parts);
        calls.push_back(stream.str());
    }
};

} // namespace tessarine
