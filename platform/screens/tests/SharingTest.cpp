#include "platform/screens/appearance/Palette.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/list/ListView.h"
#include "platform/screens/sharing/ActivityViewController.h"
#include "platform/screens/sharing/Mail.h"
#include "platform/screens/sharing/PortalRequest.h"
#include "platform/screens/sharing/ScreenImage.h"
#include "platform/screens/sharing/ShareFile.h"
#include "platform/screens/sharing/SharePreview.h"
#include "platform/screens/tests/PrivateBus.h"
#include "platform/screens/tests/ScreensTest.h"
#include "platform/screens/text/TextView.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusUnixFileDescriptor>
#include <QtDBus/QDBusVirtualObject>
#include <QtGui/QClipboard>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QScrollBar>

using namespace platform;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

// Answers each call with the same response, and before it replies to the call.
class FakePortal : public QDBusVirtualObject {
public:
    uint code = 0;
    QVariantMap results;

    QDBusMessage call;
    QVariantMap options;
    QByteArray openedFile;

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() != q("SaveFile") && message.member() != q("OpenFile")) return false;
        call = message;
        options = qdbus_cast<QVariantMap>(message.arguments().constLast());
        read(message.arguments().at(1));
        const QString handle = q("/org/freedesktop/portal/desktop/request/%1/%2")
                                   .arg(message.service().mid(1).replace(u'.', u'_'),
                                        options.value(q("handle_token")).toString());
        auto response =
            QDBusMessage::createSignal(handle, q("org.freedesktop.portal.Request"), q("Response"));
        response << code << results;
        bus.send(response);
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(handle))));
        return true;
    }

private:
    void read(const QVariant& argument) {
        if (!argument.canConvert<QDBusUnixFileDescriptor>()) return;
        QFile file;
        const auto descriptor = argument.value<QDBusUnixFileDescriptor>();
        if (file.open(descriptor.fileDescriptor(), QIODevice::ReadOnly)) openedFile = file.readAll();
    }
};

// A window that shares, on a desktop where nothing else is.
class SharingTest : public ScreensTest {
protected:
    SharingTest() {
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address.toUtf8());
        qputenv("XDG_DATA_HOME", root.path().toUtf8());
        qputenv("TMPDIR", root.path().toUtf8());
        qputenv("PATH", root.path().toUtf8());
        currentAppearance(); // asks the portal, which is not there yet
        show(window);
    }

    ~SharingTest() override { QDBusConnection::disconnectFromBus(q("portal")); }

    void startPortal() {
        auto connection = QDBusConnection::connectToBus(bus.address, q("portal"));
        EXPECT_TRUE(connection.registerVirtualObject(q("/org/freedesktop/portal/desktop"), &portal));
        EXPECT_TRUE(connection.registerService(q("org.freedesktop.portal.Desktop")));
    }

    // A program that writes its arguments into the file of the same name with "-called", one a line.
    void install(const char* name, const QByteArray& output = {}) {
        QFile program(root.filePath(q(name)));
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        program.write(
            "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0-wip\"\n/bin/mv \"$0-wip\" \"$0-called\"\necho " +
            output);
        program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    void installMail() {
        install("xdg-email");
        install("xdg-mime", "mail.desktop");
        QDir(root.path()).mkdir(q("applications"));
        QFile list(root.filePath(q("applications/mimeinfo.cache")));
        ASSERT_TRUE(list.open(QIODevice::WriteOnly));
        list.write("[MIME Cache]\nx-scheme-handler/mailto=mail.desktop;\n");
    }

    void share(ShareItem item) {
        auto sheet = std::make_unique<ActivityViewController>(std::move(item));
        sheet->modalPresentationStyle = ModalPresentationStyle::Popover;
        sheet->popoverAnchor = {&window.field(), window.field().rect(), Qt::TopEdge};
        window.present(std::move(sheet));
        turn();
    }

    ListView& list() { return *window.findChild<ActivityViewController*>()->findChild<ListView*>(); }

    QStringList rows() {
        QStringList titles;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            titles += list().model()->index(row, 0).data().toString();
        return titles;
    }

    void choose(const char* title) {
        const auto row = static_cast<int>(rows().indexOf(q(title)));
        ASSERT_GE(row, 0) << title;
        const QRect place = list().visualRect(list().model()->index(row, 0));
        EXPECT_TRUE(list().viewport()->rect().contains(place)) << "all rows are in view";
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place.center());
        EXPECT_TRUE(
            QTest::qWaitFor([this] { return window.findChild<ActivityViewController*>() == nullptr; }));
    }

    // What an alert says, once there is one.
    QString alert() {
        AlertController* found = nullptr;
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return (found = window.findChild<AlertController*>()) != nullptr; }));
        return found ? found->title() + q(": ") + found->accessibleDescription() : QString();
    }

    // What a program was called with, once it was.
    QStringList argumentsOf(const char* name) {
        const QString path = root.filePath(q(name) + q("-called"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path); }));
        return QString::fromUtf8(contentOf(path)).split(u'\n');
    }

    PrivateBus bus;
    QTemporaryDir root;
    FakePortal portal;
    RecordingController window{q("W"), log};
    const QString text = QString::fromUtf8("let ä = 1\r\nb\0c", 15);
};

TEST(ShareItem, NamesOfFilesAreSafe) {
    const auto named = [](const QString& name, const char* suffix = "swift") {
        return ShareItem{QString(), name, q(suffix)}.fileName();
    };
    EXPECT_EQ(named(q("Größe 😀 (2)")), q("Größe 😀 (2).swift"));
    EXPECT_EQ(named(q("../../etc/passwd")), q("-..-etc-passwd.swift"));
    EXPECT_EQ(named(q(" . ..hidden")), q("hidden.swift"));
    EXPECT_EQ(named(q("a\nb\tc\u202Egpj\u0085")), q("a-b-c-gpj-.swift"));
    EXPECT_EQ(named(u'x' + QString(QChar(char16_t{0xD800}))), q("x-.swift"));
    for (const auto& nothing : {QString(), q("  "), q("..."), q(" . ")})
        EXPECT_EQ(named(nothing), q("Snippet.swift"));
    for (const QString& one : {q("a"), q("ä"), q("語"), q("😀"), q("a😀")}) {
        const QString name = named(one.repeated(1'000'000 / one.size()));
        EXPECT_LE(name.toUtf8().size(), 130);
        EXPECT_GE(name.toUtf8().size(), 110);
        EXPECT_TRUE(name.isValidUtf16());
    }
    EXPECT_EQ(named(q("a"), "c++"), q("a.c++"));
    EXPECT_EQ(named(q("a"), "../b"), q("a.txt"));
    EXPECT_EQ(named(q("a"), ""), q("a.txt"));
    EXPECT_EQ((ShareItem{QImage(1, 1, QImage::Format_RGB32), q("a"), q("swift")}.fileName()), q("a.png"));
}

TEST_F(SharingTest, ATextIsCopiedAsTextAndAPictureAsAPicture) {
    share({text, q("Name"), q("swift")});
    choose("Copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    share({image, q("Name"), {}});
    list().setFocus();
    QTest::keyClick(list().viewport(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Return);
    turn();
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), image);
}

TEST_F(SharingTest, ATextIsSavedByteForByteWhereTheUserSays) {
    share({text, q("Name"), q("swift")});
    choose("Save As…");
    QFileDialog* dialog = nullptr;
    ASSERT_TRUE(QTest::qWaitFor([&] { return (dialog = window.findChild<QFileDialog*>()) != nullptr; }));
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    auto* field = dialog->findChild<QLineEdit*>(q("fileNameEdit"));
    EXPECT_EQ(field->text(), q("Name.swift"));
    field->clear();
    QTest::keyClicks(field, root.filePath(q("other")));
    QTest::keyClick(field, Qt::Key_Return);
    turn();
    EXPECT_EQ(contentOf(root.filePath(q("other.swift"))), text.toUtf8());
}

TEST_F(SharingTest, ThePortalIsAskedWhereToSave) {
    startPortal();
    const QString path = root.filePath(q("ä b.txt"));
    portal.results = {{q("uris"), QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)}}};
    share({text, q("Name"), q("swift")});
    choose("Save As…");
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path); }));
    EXPECT_EQ(contentOf(path), text.toUtf8());
    EXPECT_EQ(portal.call.interface(), q("org.freedesktop.portal.FileChooser"));
    EXPECT_EQ(portal.options.value(q("current_name")).toString(), q("Name.swift"));
    EXPECT_EQ(window.findChild<QFileDialog*>(), nullptr);

    portal.results = {
        {q("uris"), QStringList{QUrl::fromLocalFile(root.filePath(q("no/folder"))).toString()}}};
    share({text, q("Name"), q("swift")});
    choose("Save As…");
    EXPECT_TRUE(alert().startsWith(q("Quillet: The file could not be saved: ")));
}

TEST_F(SharingTest, ThePortalOpensACopyAndMayBeClosed) {
    startPortal();
    share({text, q("Name"), q("swift")});
    choose("Open With…");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.openedFile.isEmpty(); }));
    EXPECT_EQ(portal.openedFile, text.toUtf8());
    EXPECT_TRUE(portal.options.value(q("ask")).toBool());
    portal.code = 2; // who closes the portal's window has not asked for more
    share({text, q("Name"), q("swift")});
    choose("Save As…");
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.call.member() == q("SaveFile"); }));
    ASSERT_TRUE(QTest::qWaitFor([] { return !qApp->findChild<PortalRequest*>(); })) << "it is answered";
    EXPECT_EQ(window.findChild<QFileDialog*>(), nullptr);
    EXPECT_EQ(window.findChild<AlertController*>(), nullptr);
}

class Opener : public QObject {
    Q_OBJECT

public:
    QList<QUrl> opened;

public Q_SLOTS:

    void open(const QUrl& url) { opened += url; }
};

TEST_F(SharingTest, WithoutAPortalAProgramOpensACopyThatIsForThisUserAlone) {
    Opener opener;
    QDesktopServices::setUrlHandler(q("file"), &opener, "open");
    for (int i = 0; i < 2; ++i) {
        share({text, q("Name"), q("swift")});
        choose("Open With…");
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return opener.opened.size() == 2; }));
    EXPECT_NE(opener.opened[0], opener.opened[1]) << "two of one name are two files";
    const QFileInfo file(opener.opened[0].toLocalFile());
    EXPECT_EQ(file.fileName(), q("Name.swift"));
    EXPECT_EQ(contentOf(file.filePath()), text.toUtf8());
    const auto everybody = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(file.permissions() & everybody, QFile::Permissions());
    EXPECT_EQ(QFileInfo(file.path()).permissions() & (everybody | QFile::ExeGroup | QFile::ExeOther),
              QFile::Permissions());
    QDesktopServices::unsetUrlHandler(q("file"));
}

TEST_F(SharingTest, WithoutAnyProgramTheUserIsTold) {
    share({text, q("Name"), q("swift")});
    choose("Open With…");
    EXPECT_EQ(alert(), q("Quillet: There is no program that opens it."));
}

TEST_F(SharingTest, MailCarriesAShortTextItselfAndOthersAsAFile) {
    installMail();
    ASSERT_TRUE(QTest::qWaitFor([] { return canSendMail(); }));
    share({q("short\ntext"), q("My\nname"), q("swift")});
    choose("Send by Mail");
    const QString said = argumentsOf("xdg-email").join(u'\n');
    EXPECT_TRUE(said.contains(q("--subject\nMy name\n"))) << said.toStdString();
    EXPECT_TRUE(said.contains(q("--body\nshort\ntext\n"))) << said.toStdString();
    EXPECT_FALSE(said.contains(q("--attach")));

    const QString large = q("語").repeated(10'000);
    const std::pair<std::variant<QString, QImage>, QString> files[]{
        {large, q("/n.swift")}, {QImage(2, 2, QImage::Format_RGB32), q("/n.png")}};
    for (const auto& [content, ending] : files) {
        QFile::remove(root.filePath(q("xdg-email-called")));
        share({content, q("n"), q("swift")});
        choose("Send by Mail");
        const QStringList arguments = argumentsOf("xdg-email");
        const QString path = arguments.value(arguments.indexOf(q("--attach")) + 1);
        EXPECT_TRUE(path.endsWith(ending)) << path.toStdString();
        EXPECT_TRUE(QFile::exists(path));
        EXPECT_EQ(contentOf(path) == large.toUtf8(), ending == q("/n.swift"));
    }
}

TEST_F(SharingTest, WithoutMailThereIsNoRowForIt) {
    ASSERT_TRUE(QTest::qWaitFor([] { return !canSendMail(); }));
    share({text, {}, {}});
    EXPECT_EQ(rows(), (QStringList{q("Copy"), q("Save As…"), q("Open With…")}));
    EXPECT_EQ(window.findChild<SharePreview*>()->accessibleName(), q("Snippet.txt, let ä = 1"));
    QTest::mouseClick(window.findChild<SymbolButton*>(), Qt::LeftButton);
    turn();
    EXPECT_EQ(window.presentedViewController(), nullptr);
}

TEST_F(SharingTest, APictureKeepsItsScaleAndAFailureWhatWasThere) {
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(Qt::blue);
    image.setDevicePixelRatio(2);
    const QString path = root.filePath(q("a.png"));
    ASSERT_TRUE(writeItem({image, {}, {}}, path));
    const QImage read(path);
    EXPECT_EQ(read.size(), image.size());
    EXPECT_EQ(read.pixelColor(3, 1), QColor(Qt::blue));
    EXPECT_NEAR(read.dotsPerMeterX(), 2 * 96 / 0.0254, 1);
    const QByteArray before = contentOf(path);
    EXPECT_FALSE(writeItem({QImage(), {}, {}}, path));
    EXPECT_EQ(contentOf(path), before);
}

TEST_F(SharingTest, ThePictureOfATextIsWhatIsInViewWithoutCaretAndScrollBar) {
    TextView view;
    view.setText(q("line\n").repeated(200));
    show(view, {300, 200});
    view.setFocus();
    ASSERT_TRUE(view.hasFocus());
    const QImage top = imageOf(view);
    EXPECT_EQ(top.size(), view.viewport()->size() * view.devicePixelRatio());
    EXPECT_FALSE(top.hasAlphaChannel());
    EXPECT_GT(view.cursorWidth(), 0);
    view.clearFocus(); // hides the caret
    turn();
    EXPECT_EQ(imageOf(view), top);
    EXPECT_EQ(view.viewport()->grab().toImage().convertToFormat(top.format()), top);
    view.verticalScrollBar()->setValue(3);
    view.selectAll();
    EXPECT_NE(imageOf(view), top);
    EXPECT_EQ(view.viewport()->grab().toImage().convertToFormat(top.format()), imageOf(view));
}

} // namespace

#include "SharingTest.moc"
