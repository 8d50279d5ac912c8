#include "platform/screens/sharing/ActivityViewController.h"

#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/list/RowParts.h"
#include "platform/screens/sharing/Mail.h"
#include "platform/screens/sharing/OpenWith.h"
#include "platform/screens/sharing/SavePanel.h"
#include "platform/screens/sharing/ShareFile.h"
#include "platform/screens/sharing/SharePreview.h"

#include <QtCore/QPointer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <memory>

namespace platform {

namespace {

// Points.
constexpr int leastWidth = 300;
constexpr int besideATitle = 110; // margins and symbol
constexpr int previewMargin = 14; // above it
constexpr int previewSide = 20;
constexpr int closeSide = 8;

constexpr qsizetype mostOfABody = 20'000; // bytes; a longer text goes as a file

void tellFailure(ViewController& over, const QString& what) {
    showAlert(over, QStringLiteral("Quillet"), what, QStringLiteral("OK"));
}

void copy(const ShareItem& item, ViewController& /*over*/) {
    auto* clipboard = QGuiApplication::clipboard();
    if (const auto* image = item.image())
        clipboard->setImage(*image);
    else
        clipboard->setText(*item.text());
}

void saveAs(const ShareItem& item, ViewController& over) {
    askWhereToSave(*over.window(), item.fileName(), [item, over = QPointer(&over)](const QString& path) {
        if (const auto written = writeItem(item, path); !written && over)
            tellFailure(*over, QStringLiteral("The file could not be saved: %1").arg(written.error()));
    });
}

// A file of the item, or a word to the user.
std::optional<QString> fileFor(const ShareItem& item, ViewController& over) {
    auto path = temporaryFileOf(item);
    if (path) return *path;
    tellFailure(over, QStringLiteral("A file for it could not be written: %1").arg(path.error()));
    return std::nullopt;
}

// What a command line cannot carry has to be a file.
bool fitsABody(const QString& text) {
    return text.size() <= mostOfABody && text.toUtf8().size() <= mostOfABody && !text.contains(QChar(0));
}

void sendByMail(const ShareItem& item, ViewController& over) {
    MailMessage message{.recipient = {}, .subject = item.name.simplified(), .body = {}};
    if (item.text() && fitsABody(*item.text())) {
        message.body = *item.text();
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
    auto* preview = new SharePreview(m_item, this);
    auto* close = new SymbolButton(QStringLiteral("xmark.circle.fill"), QStringLiteral("Close"),
                                   Asset::TextSecondary, this);
    connect(close, &QAbstractButton::clicked, this, [this] { dismiss(); });
    auto* list = makeList();
    setFocusProxy(list);
    setPreferredContentSize(
        preferredSize(std::max(preview->sizeHint().height(), close->sizeHint().height())));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, previewMargin, 0, 0);
    column->setSpacing(0);
    auto* top = new QHBoxLayout;
    top->setContentsMargins(previewSide, 0, closeSide, 0);
    top->addWidget(preview);
    top->addWidget(close, 0, Qt::AlignTop);
    column->addLayout(top);
    column->addWidget(list);
}

ListView* ActivityViewController::makeList() {
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
    connect(list, &ListView::rowActivated, this,
            [this](const QModelIndex& index) { perform(static_cast<std::size_t>(index.row())); });
    return list;
}

QSize ActivityViewController::preferredSize(int topHeight) const {
    const auto rows = listMetrics();
    QSize size(leastWidth, previewMargin + topHeight + rows.top + rows.bottom);
    for (const auto& activity : m_activities) {
        const int title = QFontMetrics(platform::font(TextStyle::Body)).horizontalAdvance(activity.title);
        size = QSize(std::max(size.width(), title + besideATitle), size.height() + rows.row);
    }
    return size;
}

// The sheet goes first, so that whatever comes next lies over who presented it.
void ActivityViewController::perform(std::size_t activity) {
    dismiss(Animated::Yes, [perform = m_activities[activity].perform, item = m_item,
                            over = QPointer(presentingViewController())] {
        if (over) perform(item, *over);
    });
}

} // namespace platform
