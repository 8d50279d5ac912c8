#include "Quillet/core/Snippet.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/LibraryModel.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/SnippetKeys.h"

#include <algorithm>

namespace quillet {

namespace {

template <typename T>
QVariant variantOf(const std::optional<T>& value) {
    return value ? QVariant(*value) : QVariant();
}

template <typename T>
std::optional<T> valueOf(const QVariant& variant) {
    return variant.isNull() ? std::nullopt : std::optional(variant.value<T>());
}

} // namespace

Snippet::Snippet()
    : ManagedObject(libraryModel()->entity(QStringLiteral("Snippet"))) {}

std::shared_ptr<Snippet> Snippet::create(const QString& title, const std::optional<QString>& notes,
                                         const QString& code, const QString& language) {
    auto snippet = std::make_shared<Snippet>();
    CoreDataStack::shared().viewContext().insert(snippet);
    snippet->setTitle(title);
    snippet->setNotes(notes);
    snippet->setCode(code);
    snippet->setLanguage(language);
    return snippet;
}

platform::StoreResult<QString> Snippet::readCode() const {
    auto code = readValue(Code);
    if (!code) return std::unexpected(code.error());
    return code->toString();
}

std::optional<QByteArray> Snippet::id() const {
    return valueOf<QByteArray>(value(Id));
}

void Snippet::setId(const std::optional<QByteArray>& id) {
    setValue(Id, variantOf(id));
}

std::optional<QString> Snippet::name() const {
    return valueOf<QString>(value(Name));
}

void Snippet::setName(const std::optional<QString>& name) {
    setValue(Name, variantOf(name));
}

void Snippet::setLastUpdate(const std::optional<QDateTime>& date) {
    setValue(LastUpdate, variantOf(date));
}

void Snippet::update(const platform::CKRecord& record) {
    const auto takeText = [this, &record](SnippetKeys key, Attribute attribute) {
        if (const auto text = platform::as<QString>(field(record, key))) setValue(attribute, *text);
    };
    takeText(SnippetKeys::name, Name);
    if (const auto date = platform::as<QDateTime>(field(record, SnippetKeys::lastUpdate)))
        setLastUpdate(date);
    takeText(SnippetKeys::title, Title);
    takeText(SnippetKeys::notes, Notes);
    takeText(SnippetKeys::code, Code);
    takeText(SnippetKeys::language, Language);
}

Folder* Snippet::folder() const {
    return static_cast<Folder*>(toOne(InFolder));
}

std::vector<std::shared_ptr<Segment>> Snippet::sortedSegments() const {
    std::vector<std::shared_ptr<Segment>> segments;
    for (auto* segment : toMany(Segments))
        segments.push_back(std::static_pointer_cast<Segment>(segment->shared_from_this()));
    // One moment for all: a clock that moves between two comparisons would be no order.
    const auto now = QDateTime::currentDateTimeUtc();
    std::ranges::stable_sort(segments, {},
                             [&now](const auto& segment) { return segment->creationDate().value_or(now); });
    return segments;
}

} // namespace quillet
