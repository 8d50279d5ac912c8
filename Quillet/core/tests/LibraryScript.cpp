#include "Quillet/core/tests/LibraryScript.h"

#include "Quillet/core/Folder.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/Tag.h"

#include <QtCore/QCryptographicHash>

#include <algorithm>

namespace quillet {

namespace {

constexpr int editsAStep = 4;
constexpr int longestText = 60'000; // in units; a step that writes a few of them is at work for a while
constexpr std::size_t mostSnippets = 50;
constexpr std::size_t mostTags = 12; // and as many folders

const QString stepFolder = QStringLiteral("step");

qsizetype titleOf(const platform::ManagedObject& object) {
    const auto& name = object.entity().name;
    if (name == QStringLiteral("Snippet")) return Snippet::Title;
    if (name == QStringLiteral("Segment")) return Segment::Title;
    return name == QStringLiteral("Tag") ? qsizetype{Tag::Title} : qsizetype{Folder::Title};
}

QByteArray titleText(const platform::ManagedObject* object) {
    return object ? object->value(titleOf(*object)).toByteArray() : QByteArray("-");
}

QByteArray membersText(const platform::ObjectSet& members) {
    QByteArrayList titles;
    for (const auto* member : members)
        titles += titleText(member);
    std::ranges::sort(titles);
    return '(' + titles.join(' ') + ')';
}

// Values that are new at every run say nothing.
bool isComparable(const platform::ManagedObject& object, qsizetype attribute) {
    const auto& name = object.entity().attributes[static_cast<std::size_t>(attribute)].name;
    return name != QStringLiteral("id") && name != QStringLiteral("creationDate");
}

QByteArray objectText(const platform::ManagedObject& object) {
    QByteArray text = object.entity().name.toUtf8() + ' ' + titleText(&object);
    for (qsizetype i = 0; i < static_cast<qsizetype>(object.entity().attributes.size()); ++i) {
        if (!isComparable(object, i)) continue;
        const QVariant value = object.value(i);
        const QByteArray bytes = value.toByteArray();
        text += value.isNull() ? QByteArray(" null")
                               : ' ' + QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    }
    for (qsizetype i = 0; i < static_cast<qsizetype>(object.entity().relationships.size()); ++i) {
        const auto& relationship = object.entity().relationships[static_cast<std::size_t>(i)];
        text +=
            ' ' + (relationship.cardinality == platform::Cardinality::ToMany ? membersText(object.toMany(i))
                                                                             : titleText(object.toOne(i)));
    }
    return text;
}

} // namespace

int LibraryScript::lastStep() const {
    for (const auto& folder : m_context->fetch({QStringLiteral("Folder"), {}, {}, {}})) {
        const QString title = folder->value(Folder::Title).toString();
        if (title.startsWith(stepFolder)) return title.mid(stepFolder.size()).toInt();
    }
    return 0;
}

void LibraryScript::make(int step) {
    m_step = step;
    m_created = 0;
    m_random.seed(static_cast<quint32>(step));
    if (step == 1) create("Folder")->setValue(Folder::Title, stepFolder);
    for (const auto& folder : sorted("Folder"))
        if (folder->value(Folder::Title).toString().startsWith(stepFolder))
            folder->setValue(Folder::Title, stepFolder + QString::number(step));
    for (int i = 0; i < editsAStep; ++i)
        edit();
}

QByteArray LibraryScript::dump() const {
    QByteArrayList lines;
    for (const auto& entity : m_context->model().entities())
        for (const auto& object : m_context->fetch({entity.name, {}, {}, {}}))
            lines += objectText(*object);
    std::ranges::sort(lines);
    return lines.join('\n');
}

std::vector<LibraryScript::Object> LibraryScript::sorted(const char* entity) const {
    auto objects = m_context->fetch({QString::fromLatin1(entity), {}, {}, {}});
    std::ranges::sort(objects, {}, [](const auto& object) { return titleText(object.get()); });
    return objects;
}

// The folder that holds the step sorts last, and is never picked.
LibraryScript::Object LibraryScript::pick(const char* entity) {
    auto objects = sorted(entity);
    std::erase_if(objects, [](const auto& object) {
        return object->value(titleOf(*object)).toString().startsWith(stepFolder);
    });
    return objects.empty() ? nullptr : objects[m_random.bounded(static_cast<quint32>(objects.size()))];
}

LibraryScript::Object LibraryScript::create(const char* entity) {
    const auto object = m_context->model().entity(QString::fromLatin1(entity)).makeObject();
    m_context->insert(object);
    object->setValue(titleOf(*object), QStringLiteral("%1.%2").arg(m_step).arg(++m_created));
    return object;
}

QString LibraryScript::text() {
    const int length = m_random.bounded(4) == 0 ? m_random.bounded(longestText) : m_random.bounded(300);
    QString text(length, u' ');
    for (auto& unit : text)
        unit = QChar(static_cast<char16_t>(u'0' + m_random.bounded(80)));
    return text;
}

void LibraryScript::edit() {
    const auto action = m_random.bounded(12);
    const auto snippet = pick("Snippet");
    if (action < 2 && sorted("Snippet").size() >= mostSnippets) {
        m_context->deleteObject(*snippet);
    } else if (action < 2 || !snippet) {
        const auto created = create("Snippet");
        created->setValue(Snippet::Code, text());
        created->setValue(Snippet::Language, QStringLiteral("swift"));
    } else if (action < 4) {
        const auto segment = create("Segment");
        segment->setValue(Segment::Code, text());
        segment->setToOne(Segment::OfSnippet, snippet.get());
    } else if (action == 4 && sorted("Tag").size() < mostTags) {
        create("Tag")->setValue(Tag::ColorIndex, static_cast<int>(m_random.bounded(8)));
        create("Folder");
    } else if (action < 6) {
        static constexpr const char* deletable[] = {"Snippet", "Segment", "Tag", "Folder"};
        if (const auto object = pick(deletable[m_random.bounded(4)])) m_context->deleteObject(*object);
    } else {
        editSnippet(*snippet);
    }
}

void LibraryScript::editSnippet(platform::ManagedObject& snippet) {
    const auto tag = pick("Tag");
    const auto folder = pick("Folder");
    switch (m_random.bounded(5)) {
    case 0:
    case 1:
        return snippet.setValue(Snippet::Code, text());
    case 2:
        return snippet.setValue(Snippet::Notes, m_random.bounded(3) ? QVariant(text()) : QVariant());
    case 3:
        return snippet.setToOne(Snippet::InFolder, m_random.bounded(4) ? folder.get() : nullptr);
    case 4:
        if (!tag) return;
        if (snippet.toMany(Snippet::Tags).contains(tag.get()))
            tag->removeFromMany(Tag::Snippets, snippet);
        else
            snippet.addToMany(Snippet::Tags, *tag);
    }
}

} // namespace quillet
