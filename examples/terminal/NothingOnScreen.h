#pragma once

#include <Tessarine/Tessarine.h>

// A host without a screen, which lays nothing out and ends before anything could come back to it.

class CellMeasurer final : public tessarine::TextMeasurer {
public:
    tessarine::FontMetrics metrics(const tessarine::Font& /*font*/) const override { return {.ascender = 1}; }

    double width(std::u16string_view text, const tessarine::Font& /*font*/) const override {
        return static_cast<double>(text.size());
    }
};

class NoLayout final : public tessarine::TextInputLayout {
public:
    void setDocument(const tessarine::EditedDocument& /*document*/) override {}

    void setTabWidth(double /*tabWidth*/) override {}

    void invalidateContentSize() override {}

    void removeLine(const tessarine::DocumentLineNodeID& /*lineID*/) override {}

    void removeAllLines() override {}

    void typesetLines(const tessarine::LineSet& /*lines*/) override {}

    void lineCountDidChange() override {}

    void setNeedsLayout() override {}

    void layoutIfNeeded() override {}

    tessarine::Size contentSize() override { return {}; }
};

class NoTimers final : public tessarine::TimerScheduler {
public:
    std::unique_ptr<tessarine::ScheduledTimer> schedule(std::chrono::duration<double> /*delay*/,
                                                        Action /*action*/) override {
        return std::make_unique<tessarine::ScheduledTimer>();
    }
};

class NoMainLoop final : public tessarine::MainExecutor {
public:
    void post(Task /*task*/) override {}
};
