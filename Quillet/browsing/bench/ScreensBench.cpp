// What the sidebar costs at 10,000 and at 100,000 snippets: its list rebuilt, shown, scrolled, opened and
// searched, with three fifths of the snippets under one open language. Beside the list stands a QTreeView
// with the same model, and beside the rebuild a bare sort of the same titles. Every size is a process of its
// own.

#include "Quillet/browsing/SnippetList.h"
#include "Quillet/core/CoreDataStack.h"
#include "platform/foundation/bench/Samples.h"
#include "platform/screens/controllers/ViewController.h"
#include "tools/bench/Record.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTreeView>

#include <cstdio>
#include <random>

using namespace quillet;
using platform::measure;
using platform::millisecondsOf;
using platform::Samples;

namespace {

constexpr int languages = 40;
constexpr int folders = 200;
constexpr int tags = 300;
constexpr QSize windowSize(320, 900); // points

int snippetCount = 0;
const char* shownBy = "Quillet"; // whose figures are reported

void report(const char* name, const Samples& samples) {
    std::printf("  %-52s %9.2f %9.2f\n", name, samples.median(), samples.p99());
    bench::keep({name, shownBy, samples.median(), samples.p99(), "ms", static_cast<double>(snippetCount)});
}

// Titles of a few words, so that a comparison has to look at more than a letter or two.
QString titleFrom(std::mt19937& random) {
    static const char* const words[] = {"sort",  "binary", "search",  "client", "cache", "parse",
                                        "query", "layout", "binding", "stream", "token", "async"};
    QString title;
    for (int i = 0; i < 3; ++i)
        title += QString::fromLatin1(words[random() % std::size(words)]) + u' ';
    return title + QString::number(random() % 100'000);
}

template <typename T>
std::vector<std::shared_ptr<T>> make(int count, const QString& title) {
    std::vector<std::shared_ptr<T>> made;
    for (int i = 0; i < count; ++i)
        if constexpr (std::is_same_v<T, Tag>)
            made.push_back(Tag::create(title.arg(i), static_cast<qint16>(i % 10), {}));
        else
            made.push_back(Folder::create(title.arg(i), {}));
    return made;
}

void fill(int snippets) {
    std::mt19937 random(1);
    const auto allTags = make<Tag>(tags, QStringLiteral("tag %1"));
    const auto allFolders = make<Folder>(folders, QStringLiteral("folder %1"));
    for (int i = 0; i < snippets; ++i) {
        const auto language = random() % 5 < 3 ? 0 : random() % languages;
        const auto snippet = Snippet::create(titleFrom(random), {}, QStringLiteral("code"),
                                             QStringLiteral("language %1").arg(language));
        snippet->setToOne(Snippet::InFolder, allFolders[random() % folders].get());
        for (int n = 0; n < 2; ++n)
            snippet->addToMany(Snippet::Tags, *allTags[random() % tags]);
    }
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    QCoreApplication::processEvents();
}

void measureRebuild(SnippetListModel& model) {
    const auto rebuild = [&model] { model.rebuild(model.snippets(), model.folders(), model.tags()); };
    report("rebuild of the list model", measure(15, rebuild));
    std::vector<std::vector<QString>> groups;
    for (const auto* items : {&model.tagItems, &model.folderItems, &model.languageItems})
        for (const auto& group : items->value())
            for (auto& titles = groups.emplace_back(); const auto& leaf : *group->children())
                titles.push_back(std::get<std::shared_ptr<Snippet>>(leaf->type())->title());
    std::mt19937 random(1);
    for (auto& titles : groups)
        std::ranges::shuffle(titles, random);
    report("  floor: the same titles sorted", measure(15, [&groups] {
               for (auto titles : groups)
                   std::ranges::stable_sort(titles);
           }));
}

// The big language, the last but one to open.
QModelIndex bigLanguage(const QAbstractItemModel& model) {
    return model.index(0, 0, model.index(SnippetTree::LanguageGroup, 0));
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

template <typename View>
void show(View& view) {
    view.resize(windowSize);
    view.show();
    settle();
}

template <typename View>
void measureView(View& view, SnippetListModel& model) {
    const auto publish = [&] { model.languageItems.set(model.languageItems.value()); };
    report("reset of the tree, laid out and painted", measure(15, [&] {
               publish();
               settle();
           }));
    report("painted whole", measure(51, [&] {
               view.viewport()->update();
               settle();
           }));
    auto& bar = *view.verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    settle();
    const QPointF middle = view.viewport()->rect().center();
    report("a step of the wheel", measure(201, [&] {
               QWheelEvent wheel(middle, view.viewport()->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                                 Qt::NoModifier, Qt::NoScrollPhase, false);
               QCoreApplication::sendEvent(view.viewport(), &wheel);
               settle();
           }));
    std::mt19937 random(2);
    report("a jump by the scroll bar", measure(201, [&] {
               bar.setValue(static_cast<int>(random() % static_cast<unsigned>(bar.maximum())));
               settle();
           }));
    const QModelIndex first = view.model()->index(0, 0, bigLanguage(*view.model()));
    QApplication::setKeyboardInputInterval(1);
    Samples searches;
    for (int i = 0; i < 15; ++i) {
        view.setCurrentIndex(first);
        QThread::msleep(3); // what was typed before is forgotten
        searches.add(millisecondsOf([&] { view.keyboardSearch(QStringLiteral("zz")); }));
    }
    report("type-ahead that finds nothing", searches);
}

// The frames that a toggle of the big language takes until it is at rest, and the press itself.
void measureDisclosure(platform::ListView& list) {
    class PaintCount : public QObject {
    public:
        int paints = 0;

    protected:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++paints;
            return false;
        }
    } count;

    list.viewport()->installEventFilter(&count);
    QApplication::setEffectEnabled(Qt::UI_General, true);
    list.verticalScrollBar()->setValue(0);
    const QModelIndex big = bigLanguage(*list.model());
    list.scrollTo(big, QAbstractItemView::PositionAtTop);
    settle();
    Samples presses;
    Samples frames;
    for (int turn = 0; turn < 20; ++turn) {
        presses.add(millisecondsOf([&] { list.setOpen(big, !list.isOpen(big)); }));
        QElapsedTimer sinceFrame;
        sinceFrame.start();
        while (!sinceFrame.hasExpired(100)) {
            const int before = count.paints;
            const double time = millisecondsOf(settle);
            if (count.paints == before) continue;
            frames.add(time);
            sinceFrame.restart();
        }
    }
    report("a press that opens or closes", presses);
    report("a frame while it slides", frames);
}

void measureLists() {
    SnippetListModel model;
    measureRebuild(model);
    {
        const SnippetTree tree(model);
        report("reset of the tree, without a view",
               measure(51, [&] { model.languageItems.set(model.languageItems.value()); }));
    }
    {
        std::printf(" platform::ListView\n");
        platform::ViewController presenter;
        SnippetList list(model, presenter);
        list.setOpen(list.model()->index(SnippetTree::LanguageGroup, 0), true);
        list.setOpen(bigLanguage(*list.model()), true);
        Samples first;
        first.add(millisecondsOf([&] { show(list); }));
        report("first painting", first);
        measureView(list, model);
        measureDisclosure(list);
    }
    std::printf(" QTreeView\n");
    shownBy = "QTreeView";
    SnippetTree tree(model);
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setModel(&tree);
    const auto expand = [&view, &tree] {
        view.expand(tree.index(SnippetTree::LanguageGroup, 0));
        view.expand(bigLanguage(tree));
    };
    QObject::connect(&tree, &QAbstractItemModel::modelReset, &view, expand); // it forgets them
    expand();
    Samples first;
    first.add(millisecondsOf([&] { show(view); }));
    report("first painting", first);
    measureView(view, model);
}

int measureHere(int snippets) {
    const QTemporaryDir directory;
    qputenv("XDG_DATA_HOME", directory.path().toUtf8());
    fill(snippets);
    snippetCount = snippets;
    std::printf("%d snippets %*s %9s %9s\n", snippets, 40, "ms", "median", "p99");
    measureLists();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc > 1) return measureHere(application.arguments().at(1).toInt());
    for (const auto* size : {"10000", "100000"}) {
        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedOutputChannel);
        child.start(application.applicationFilePath(), {QString::fromLatin1(size)});
        if (!child.waitForFinished(-1) || child.exitCode() != 0) return 1;
    }
    return 0;
}
