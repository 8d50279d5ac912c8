#pragma once

#include "Tessarine/base/FontTraits.h"

#include <string>

namespace tessarine {

// What text is to be set in, as a plain description; nothing is looked up.
//
// The name is that of one face: the family, and behind a dash its style ("Menlo-Regular", "Menlo-Bold"). It
// may also be one of the two system names, which stand for whatever the host's own texts and its fixed-width
// texts are set in, in regular weight. Whoever measures or draws finds a face of that name; where the host
// has none it takes the family's nearest relative in the same style, for Menlo the fixed-width one of the
// system. The traits are wanted besides what the name says.
struct Font {
    static constexpr auto systemName = "system";
    static constexpr auto monospacedSystemName = "monospaced";

    std::string name;
    double pointSize = 0;
    FontTraits traits = {};

    static Font system(double pointSize) { return {systemName, pointSize, {}}; }

    static Font monospacedSystem(double pointSize) { return {monospacedSystemName, pointSize, {}}; }

    Font withTraits(FontTraits newTraits) const { return {name, pointSize, newTraits}; }

    friend bool operator==(const Font&, const Font&) = default;
};

} // namespace tessarine
