#include "Quillet/screens/WhatsNew.h"

#include "platform/foundation/CodePointOrder.h"

namespace quillet {

namespace {

halcyonix::ModalConfig announcement() {
    return {
        .accentColor = platform::Asset::Accent,
        .title = QStringLiteral("Quillet 3.1.8"),
        .imageName = QStringLiteral("code"),
        .systemImageName = QStringLiteral("app.badge.fill"),
        .body = QStringLiteral(
            "This update makes some small changes for the big upgrade coming in June, which will take your "
            "experience to the next level. We can't wait to see what you think of it!\n\nChanges:\n- Fix "
            "the background color on some lists\n- Improve sync speed\n- Display your originally "
            "downloaded version in the settings page"),
        .items = {},
        .buttonConfig = halcyonix::ModalButtonConfig{.text = QStringLiteral("Get Coding")},
        .position = halcyonix::ModalPosition::Middle};
}

} // namespace

void checkWhatsNew(platform::ViewController& root, halcyonix::ModalViewControllerDelegate& delegate,
                   KeyStore& keyStore, const QString& currentVersion) {
    const QString seen = keyStore.versionSeen();
    if (!(platform::codePointOrderKey(seen) < platform::codePointOrderKey(currentVersion))) return;
    auto modal = std::make_unique<halcyonix::ModalViewController>(announcement());
    modal->modalPresentationStyle = platform::ModalPresentationStyle::OverCurrentContext;
    modal->delegate = &delegate;
    root.present(std::move(modal), platform::Animated::Yes,
                 [&keyStore, currentVersion] { keyStore.setVersionSeen(currentVersion); });
}

} // namespace quillet
