#pragma once

#include "Halcyonix/ModalViewController.h"
#include "Quillet/core/KeyStore.h"

namespace quillet {

// Announces what is new in `currentVersion`, over `root`, to a user who has seen an earlier version only.
// Versions are compared by code points, so 3.1.10 is earlier than 3.1.8. The version counts as seen once the
// announcement has come to rest on screen. `delegate` and `keyStore` outlive it. Main thread.
void checkWhatsNew(platform::ViewController& root, halcyonix::ModalViewControllerDelegate& delegate,
                   KeyStore& keyStore, const QString& currentVersion);

} // namespace quillet
