#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/FontDescriptor.h"
#include "Quillet/core/KeyStore.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/SnippetRootViewController.h"
#include "Quillet/screens/editor/SnippetViewController.h"
#include "Quillet/screens/settings/AppTransaction.h"
#include "Quillet/screens/settings/DataStatusView.h"
#include "Quillet/screens/settings/HelpMail.h"
#include "Quillet/screens/settings/SettingsHostController.h"
#include "Quillet/screens/settings/SettingsRow.h"
#include "Quillet/screens/settings/SettingsView.h"
#include "platform/foundation/NotificationCenter.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtWidgets/QFontDialog>
#include <QtWidgets/QLabel>

#include <sys/stat.h>

using namespace quillet;

namespace {

// What an installation leaves behind, with the digest as the header of AppTransaction tells it.
QByteArray receipt(const QByteArray& bundle = "quillet", const QByteArray& digest = {}) {
    const QByteArray rest = "{\"bundle\":\"" + bundle + "\",\"originalAppVersion\":\"2.4.1\"}";
    const QByteArray right = QCryptographicHash::hash(rest, QCryptographicHash::Sha256).toHex();
    return "{ \"sha256\": \"" + (digest.isEmpty() ? right : digest) +
           "\",\n \"originalAppVersion\": \"2.4.1\", \"bundle\": \"" + bundle + "\" }\n";
}

class SettingsTest : public TemporaryLibrary {
protected:
    void SetUp() override {
        QApplication::setEffectEnabled(Qt::UI_General, false); // nothing slides
        QCoreApplication::setApplicationVersion(QStringLiteral("3.1.8"));
        qputenv("XDG_DATA_DIRS", root.filePath(QStringLiteral("none")).toUtf8());
    }

    void open() {
        window = std::make_unique<SnippetNavigationController>(std::make_unique<SettingsHostController>());
        window->resize(460, 600);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    SettingsHostController& host() const {
        return static_cast<SettingsHostController&>(*window->viewControllers().front());
    }

    QString writeReceipt(const QByteArray& bytes,
                         QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner) const {
        QDir(root.path()).mkpath(QStringLiteral("quillet"));
        QFile file(root.filePath(QStringLiteral("quillet/receipt.json")));
        file.remove();
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        file.setPermissions(permissions);
        return file.fileName();
    }

    // Of the rows, from the top.
    QStringList titles() const {
        QStringList shown;
        for (const auto* row : window->findChildren<SettingsRow*>())
            shown += row->accessibleName();
        return shown;
    }

    QString footer() const {
        for (const auto* label : window->findChildren<QLabel*>())
            if (label->text().startsWith(QStringLiteral("Version: "))) return label->text();
        return {};
    }

    std::unique_ptr<SnippetNavigationController> window;
};

TEST_F(SettingsTest, TheRowsShowWhatIsStoredAndTheFooterTheVersion) {
    KeyStore::shared().setCodeTheme(QStringLiteral("dark"));
    open();
    EXPECT_EQ(titles().join(u' '), QStringLiteral("Theme Data Help Website Ashgrove"));
    EXPECT_EQ(driver::waitFor<SettingsRow>(*window, QStringLiteral("Theme")).accessibleDescription(),
              QStringLiteral("dark"));
    EXPECT_EQ(footer(), QStringLiteral("Version: 3.1.8 (%1)").arg(QStringLiteral(QUILLET_BUILD)));
}

TEST_F(SettingsTest, AThemeThatIsChosenIsStoredShownAndToldAndThePickerStays) {
    open();
    QStringList told;
    host().onTheme = [&](const QString& theme) { told += theme; };
    driver::click(*window, QStringLiteral("Theme"));
    auto& list = driver::waitFor<platform::ListView>(*window, QStringLiteral("Themes"));
    driver::clickRow(list, QStringLiteral("monokai"));
    EXPECT_EQ(told, QStringList{QStringLiteral("monokai")});
    EXPECT_EQ(KeyStore::shared().codeTheme(), QStringLiteral("monokai"));
    EXPECT_EQ(driver::waitFor<SettingsRow>(*window, QStringLiteral("Theme")).accessibleDescription(),
              QStringLiteral("monokai"));
    EXPECT_TRUE(list.isVisible());
}

TEST_F(SettingsTest, TheListOpensThemByKeyAndTheEditorTakesTheTheme) {
    KeyStore::shared().setVersionSeen(QStringLiteral("9")); // no news
    const auto main = SnippetRootViewController::create();
    main->resize(1000, 700);
    main->show();
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    QTest::keyClick(main.get(), Qt::Key_Comma, Qt::ControlModifier);
    QTest::mouseClick(&driver::waitFor<SettingsRow>(*main, QStringLiteral("Theme")), Qt::LeftButton);
    auto& list = driver::waitFor<platform::ListView>(*main, QStringLiteral("Themes"));
    turn(); // it scrolls to the theme that is chosen
    driver::clickRow(list, QStringLiteral("monokai-sublime"));
    EXPECT_NE(
        driver::find<QLabel>(*main->findChild<SnippetViewController*>(), QStringLiteral("monokai-sublime")),
        nullptr);
}

TEST_F(SettingsTest, DataIsPushedAndPagesOpenOutside) {
    open();
    QStringList opened;
    host().settingsView().openPage = [&](const QUrl& page) { opened += page.toString(); };
    driver::click(*window, QStringLiteral("Website"));
    driver::click(*window, QStringLiteral("Ashgrove"));
    EXPECT_EQ(opened, (QStringList{QStringLiteral("https://quillet.example/"),
                                   QStringLiteral("https://store.example/ashgrove")}));
    QTest::keyClick(&driver::waitFor<SettingsRow>(*window, QStringLiteral("Data")), Qt::Key_Return);
    EXPECT_NE(qobject_cast<DataStatusView*>(window->topViewController()), nullptr);
}

TEST_F(SettingsTest, FontAndSizeAreStoredAndEditorsAreTold) {
    open();
    int reloads = 0;
    const auto observer = platform::NotificationCenter::defaultCenter().addObserver(
        reloadTextViewNotification, [&](const QVariant& object) { reloads += object.isNull() ? 1 : 100; });
    host().updateFontSize(19);
    EXPECT_EQ(UserSettings::shared().fontSize.value(), 19);
    EXPECT_EQ(reloads, 1);

    host().pickFont();
    auto* dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->reject();
    EXPECT_FALSE(UserSettings::shared().fontDescriptor.value()) << "cancelled";
    EXPECT_EQ(reloads, 1);

    host().pickFont();
    dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QFont font(QStringLiteral("DejaVu Serif"), 40, QFont::Bold);
    dialog->setCurrentFont(font);
    dialog->accept();
    EXPECT_EQ(reloads, 2);
    const QFont stored = UserSettings::shared().font();
    EXPECT_EQ(stored.family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(stored.weight(), QFont::Bold);
    EXPECT_EQ(stored.pointSize(), 19) << "the size is a setting of its own";
    EXPECT_EQ(SettingsViewModel().currentFontName.value(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(SettingsViewModel().currentFontSize.value(), 19);
}

TEST_F(SettingsTest, TheHelpMailTellsHowTheDataStands) {
    const auto message = helpMail({.foundMigrationRecord = true,
                                   .legacyRecordCount = 1200,
                                   .snippets = 3,
                                   .tags = 2,
                                   .folders = 1,
                                   .versionLine = QStringLiteral("Version: 3.1.8 (%4)")});
    EXPECT_EQ(message.recipient, QStringLiteral("support@quillet.example"));
    EXPECT_EQ(message.subject, QStringLiteral("Quillet Help"));
    EXPECT_EQ(message.body, QStringLiteral("I need some help with Quillet.\n"
                                           "\n\n\n\n\n"
                                           "==========\n"
                                           "Migration Started: true\n"
                                           "Migration Complete: true\n"
                                           "Legacy Record Count: 1200\n"
                                           "\n"
                                           "Snippets: 3\n"
                                           "Tags: 2\n"
                                           "Folders: 1\n"
                                           "Build: Version: 3.1.8 (%4)"));
}

TEST_F(SettingsTest, TheMailGoesToTheDesktopsProgram) {
    Snippet::create(QStringLiteral("a"), {}, QStringLiteral(""), QStringLiteral("swift"));
    CoreDataStack::shared().saveContext();
    open();
    const auto addProgram = [&](const char* name, const QByteArray& script) {
        QFile file(root.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    };
    addProgram("xdg-mime", "echo mail.desktop\n");
    addProgram("xdg-email", "for a in \"$@\"; do echo \"$a\"; done > \"${0%/*}/part\"\n"
                            "/bin/mv \"${0%/*}/part\" \"${0%/*}/sent\"\n");
    qputenv("PATH", root.path().toUtf8());
    driver::click(*window, QStringLiteral("Help"));
    QFile sent(root.filePath(QStringLiteral("sent")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return sent.exists(); }));
    ASSERT_TRUE(sent.open(QFile::ReadOnly));
    const QByteArray arguments = sent.readAll();
    EXPECT_TRUE(arguments.contains("\nQuillet Help\n"));
    EXPECT_TRUE(arguments.contains("\nSnippets: 1\nTags: 0\nFolders: 0\nBuild: Version: 3.1.8 ("));
    EXPECT_TRUE(arguments.endsWith("\nmailto:support@quillet.example\n"));
}

TEST_F(SettingsTest, OnlyAReceiptThatNobodyElseCouldHaveWrittenIsVerified) {
    const auto isVerified = [&](const QByteArray& bytes,
                                QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner) {
        return AppTransaction::verified(writeReceipt(bytes, permissions)).has_value();
    };
    ASSERT_TRUE(isVerified(receipt()));
    EXPECT_EQ(AppTransaction::verified(writeReceipt(receipt()))->originalAppVersion, QStringLiteral("2.4.1"));
    EXPECT_TRUE(isVerified(receipt(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    EXPECT_FALSE(isVerified(receipt(), QFile::ReadOwner | QFile::WriteGroup));
    EXPECT_FALSE(isVerified(receipt(), QFile::ReadOwner | QFile::WriteOther));
    EXPECT_FALSE(isVerified(receipt("ashgrove")));
    EXPECT_FALSE(isVerified(receipt("quillet", QByteArray(64, '0'))));
    EXPECT_FALSE(isVerified(receipt().replace("2.4.1", "9.9.9")));
    EXPECT_FALSE(isVerified(receipt().chopped(9)));
    EXPECT_FALSE(isVerified({}));
    EXPECT_FALSE(isVerified("[1, 2]"));
    EXPECT_FALSE(isVerified(receipt() + QByteArray(64 * 1024, ' ')));
    const QString pipe = root.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(AppTransaction::verified(pipe)) << "and nobody waits for its writer";
    EXPECT_FALSE(AppTransaction::verified(root.path()));
    EXPECT_FALSE(AppTransaction::verified(root.filePath(QStringLiteral("missing"))));
}

TEST_F(SettingsTest, TheFooterTellsTheOriginalDownloadOnceTheReceiptIsRead) {
    writeReceipt(receipt());
    open();
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return footer().endsWith(QStringLiteral("\nOriginal Download: 2.4.1")); }));
}

TEST_F(SettingsTest, WithoutAReceiptTheLogSaysSoOnceAndTheFooterStays) {
    context(); // its lines are no part of what is told here
    ::testing::internal::CaptureStdout();
    open();
    const QString before = footer();
    driver::click(*window, QStringLiteral("Data"));
    window->popViewController(); // comes up for the second time
    std::atomic<bool> isRead = false;
    AppTransaction::shared([&](const auto& transaction) { isRead = !transaction; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isRead.load(); }));
    turn();
    EXPECT_EQ(QString::fromStdString(::testing::internal::GetCapturedStdout())
                  .count(QStringLiteral("🛍️ Unable to reach the transaction. Use last known.\n")),
              1);
    EXPECT_EQ(footer(), before);
}

} // namespace
