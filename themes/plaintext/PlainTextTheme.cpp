#include "themes/plaintext/PlainTextTheme.h"

namespace tessarine::themes {

namespace {

constexpr Color white(RGBAColor::ofHex(0xFFFFFF));
constexpr Color black(RGBAColor::ofHex(0x000000));

} // namespace

PlainTextTheme::PlainTextTheme()
    : FixedTheme({.backgroundColor = white,
                  .userInterfaceStyle = UserInterfaceStyle::Light,
                  .textColor = black,
                  .gutterBackgroundColor = white,
                  .gutterHairlineColor = white,
                  .lineNumberColor = black.withAlpha(0.5F),
                  .selectedLineBackgroundColor = black.withAlpha(0.07F),
                  .selectedLinesLineNumberColor = black,
                  .selectedLinesGutterBackgroundColor = black.withAlpha(0.07F),
                  .invisibleCharactersColor = black.withAlpha(0.5F),
                  .pageGuideHairlineColor = black.withAlpha(0.1F),
                  .pageGuideBackgroundColor = black.withAlpha(0.06F),
                  .markedTextBackgroundColor = black.withAlpha(0.1F)}) {}

} // namespace tessarine::themes
