#pragma once

#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/layout/LineController.h"
#include "Tessarine/layout/LineControllerDelegate.h"
#include "Tessarine/layout/TextShaper.h"
#include "Tessarine/layout/manager/LayoutContext.h"

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace tessarine {

// The controllers of all lines that have been asked for. They stay when their lines leave the screen, so that
// scrolling back costs nothing.
//
// A change of settings reaches a controller when it is asked for the next time: there may be many of them,
// and few are on screen.
class LineControllers {
public:
    LineControllers(const LayoutContext& context, std::shared_ptr<const TextShaper> textShaper,
                    std::shared_ptr<const TextMeasurer> textMeasurer);

    // Whom new controllers ask for a highlighter and tell of their height.
    void setDelegate(std::weak_ptr<LineControllerDelegate> delegate) { m_delegate = std::move(delegate); }

    // With all settings as they are now. Lives until its line is removed.
    LineController& controllerOf(DocumentLineNode& line, double constrainingWidth);

    // Null if nobody has asked for it.
    LineController* existing(const DocumentLineNodeID& lineID) const;

    void remove(const DocumentLineNodeID& lineID) { m_lineControllers.erase(lineID); }

    void removeAll() { m_lineControllers.clear(); }

    std::size_t count() const { return m_lineControllers.size(); }

    // Theme, kern, tab width, line breaks or multiplier of the context have changed.
    void settingsDidChange() { ++m_settingsGeneration; }

    // The language mode has changed.
    void highlightersDidChange() { ++m_highlighterGeneration; }

private:
    struct Entry {
        std::shared_ptr<LineController> controller;
        std::int64_t settingsGeneration = 0;
        std::int64_t highlighterGeneration = 0;
    };

    std::shared_ptr<LineController> makeController(DocumentLineNode& line) const;
    void applySettings(LineController& controller) const;

    const LayoutContext& m_context;
    const std::shared_ptr<const TextShaper> m_textShaper;
    const std::shared_ptr<const TextMeasurer> m_textMeasurer;
    std::weak_ptr<LineControllerDelegate> m_delegate;
    std::unordered_map<DocumentLineNodeID, Entry> m_lineControllers;
    std::int64_t m_settingsGeneration = 1;
    std::int64_t m_highlighterGeneration = 0;
};

} // namespace tessarine
