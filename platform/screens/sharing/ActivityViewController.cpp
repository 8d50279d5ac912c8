#include "platform/screens/sharing/ActivityViewController.h"

#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controls/TextLabel.h"
#include "platform/screens/list/ListView.h"
#include "platform/screens/sharing/Mail.h"
#include "platform/screens/sharing/OpenWith.h"
#include "platform/screens/sharing/ShareFile.h"

#include <QtCore/QPointer>
#include <QtCore/QStandardPaths>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <memory>

namespace platform {

namespace {

constexpr int sheetWidth = 300;    // points
constexpr int rowHeight = 48; // about
constexpr int thumbnailHeight = 56;
constexpr qsizetype mostOfABody = 20'000; // code units; what is longer goes as a file

void tellFailure(ViewController& over, const QString& what) {
    showAlert(over, QStringLiteral("Quillet"), what, QStringLiteral("OK"));
}

void copy(const ShareItem& item, ViewController& /*over*/) {
    auto* clipboard = QGuiApplication::clipboard();
    if (const auto* image = std::get_if<QImage>(&item.content))
        clipboard->setImage(*image);
    else
        clipboard->setText(std::get<QString>(item.content));
}

void saveAs(const ShareItem& item, ViewController& over) {
    auto* dialog = new QFileDialog(over.window(), QStringLiteral("Save As"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->selectFile(item.fileName());
    QObject::connect(dialog, &QFileDialog::fileSelected, &over, [item, &over](const QString& path) {
        if (const auto written = writeItem(item, path); !written)
            tellFailure(over, QStringLiteral("The file could not be saved: %1").arg(written.error()));
    });
    dialog->open();
}

// A file of the item, or a word to the user.
std::optional<QString> fileFor(const ShareItem& item, ViewController& over) {
    auto path = temporaryFileOf(item);
    if (path) return *path;
    tellFailure(over, QStringLiteral("A file for it could not be written: %1").arg(path.error()));
    return std::nullopt;
}

void sendByMail(const ShareItem& item, ViewController& over) {
    MailMessage message{.recipient = {}, .subject = item.name, .body = {}};
    const auto* text = std::get_if<QString>(&item.content);
    if (text && text->size() <= mostOfABody) {
        message.body = *text;
    } else if (const auto path = fileFor(item, over)) {
        message.attachments = {*path};
    } else {
        return;
    }
    composeMail(message);
}

void openInProgram(const ShareItem& item, ViewController& over) {
    const auto path = fileFor(item, over);
    if (!path) return;
    openWith(*path, [over = QPointer(&over)] {
        if (over) tellFailure(*over, QStringLiteral("There is no program that opens it."));
    });
}

} // namespace

std::vector<ActivityViewController::Activity> ActivityViewController::activities() {
    std::vector<Activity> all{{QStringLiteral("Copy"), QStringLiteral("doc.on.doc"), copy},
                              {QStringLiteral("Save As…"), QStringLiteral("square.arrow.down"), saveAs}};
    if (canSendMail())
        all.push_back({QStringLiteral("Send by Mail"), QStringLiteral("envelope"), sendByMail});
    all.push_back({QStringLiteral("Open With…"), QStringLiteral("arrow.up.right.square"), openInProgram});
    return all;
}

ActivityViewController::ActivityViewController(ShareItem item, QWidget* parent)
    : ViewController(parent)
    , m_item(std::move(item))
    , m_activities(activities()) {
    setTitle(QStringLiteral("Share"));
    setAccessibleName(title());
}

void ActivityViewController::viewDidLoad() {
    ViewController::viewDidLoad();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 12, 0, 0);
    column->setSpacing(0);
    addPreview();
    addList();
    const int rows = static_cast<int>(m_activities.size());
    setPreferredContentSize({sheetWidth, layout()->itemAt(0)->sizeHint().height() + 44 + rows * rowHeight});
}

void ActivityViewController::addPreview() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(20, 0, 20, 0);
    row->setSpacing(10);
    if (const auto* image = std::get_if<QImage>(&m_item.content)) {
        auto* thumbnail = new QLabel(this);
        const qreal scale = devicePixelRatio();
        auto small =
            image->scaledToHeight(static_cast<int>(thumbnailHeight * scale), Qt::SmoothTransformation);
        small.setDevicePixelRatio(scale);
        thumbnail->setPixmap(QPixmap::fromImage(small));
        thumbnail->setMaximumWidth(sheetWidth / 2);
        thumbnail->setAccessibleName(QStringLiteral("Preview"));
        row->addWidget(thumbnail);
    }
    const QString text = m_item.isImage() ? QString() : std::get<QString>(m_item.content);
    const QString firstLine = text.left(200).trimmed().section(u'\n', 0, 0);
    const QString name = m_item.name.isEmpty() ? m_item.fileName() : m_item.name;
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    for (const auto& [line, style, role] :
         {std::tuple(name, TextStyle::Headline, QPalette::WindowText),
          std::tuple(firstLine, TextStyle::Footnote, QPalette::PlaceholderText)}) {
        auto* label = makeLabel({}, style, this, role);
        label->setWordWrap(false);
        label->setText(label->fontMetrics().elidedText(line, Qt::ElideRight, sheetWidth - 60));
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        if (!line.isEmpty()) words->addWidget(label);
    }
    row->addLayout(words, 1);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void ActivityViewController::addList() {
    auto* list = new ListView(this);
    auto* model = new QStandardItemModel(list);
    for (const auto& activity : m_activities) {
        auto row = std::make_unique<QStandardItem>(activity.title);
        row->setData(activity.symbol, ListView::SymbolRole);
        row->setEditable(false);
        model->appendRow(row.release()); // the model owns it
    }
    list->setModel(model);
    list->setAccessibleName(QStringLiteral("Ways to share"));
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(list, &ListView::rowActivated, this,
            [this](const QModelIndex& index) { perform(static_cast<std::size_t>(index.row())); });
    layout()->addWidget(list);
    setFocusProxy(list);
    list->setCurrentIndex(model->index(0, 0));
}

// The sheet goes first, so that whatever comes next lies over who presented it.
void ActivityViewController::perform(std::size_t activity) {
    const auto run = [perform = m_activities[activity].perform, item = m_item,
                      over = QPointer(presentingViewController())] {
        if (over) perform(item, *over);
    };
    dismiss(Animated::Yes, run);
}

} // namespace platform
