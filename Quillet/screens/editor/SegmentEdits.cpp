#include "Quillet/screens/editor/SegmentEdits.h"

#include "Quillet/controls/ModalTextFieldHost.h"
#include "Quillet/core/CoreDataStack.h"
#include "platform/foundation/FatalError.h"

#include <source_location>

namespace quillet {

namespace {

// For the saves that have no way back: what is on screen would not be what is stored any more.
void saveOrStop(const std::source_location& place = std::source_location::current()) {
    const auto saved = CoreDataStack::shared().viewContext().save();
    if (saved) return;
    const std::string where = std::string(place.file_name()) + ":" + std::to_string(place.line());
    platform::fatalError(
        where + ": a change of a segment could not be saved: " + saved.error().message.toStdString());
}

} // namespace

std::shared_ptr<Segment> addNewSegment(Snippet& snippet) {
    auto& stack = CoreDataStack::shared();
    const auto segment = std::make_shared<Segment>();
    stack.viewContext().insert(segment);
    const auto count = snippet.toMany(Snippet::Segments).size();
    segment->setTitle(QStringLiteral("Segment %1").arg(count + 1));
    segment->setToOne(Segment::OfSnippet, &snippet);
    stack.save(SaveReason::AddedSegment);
    return segment;
}

void removeSegment(Snippet& snippet, Segment& segment) {
    snippet.removeFromMany(Snippet::Segments, segment);
    segment.setToOne(Segment::OfSnippet, nullptr);
    CoreDataStack::shared().viewContext().deleteObject(segment);
    saveOrStop();
}

void askSegmentName(platform::ViewController& over, std::shared_ptr<Segment> segment) {
    ModalTextFieldHost::present(over,
                                {.title = QStringLiteral("Segment"),
                                 .prompt = QStringLiteral("Title"),
                                 .placeholder = QStringLiteral("Title"),
                                 .errorOnEmpty = QStringLiteral("You need a name for your segment.")},
                                [segment = std::move(segment)](const QString& title) {
                                    segment->setTitle(title);
                                    saveOrStop();
                                });
}

} // namespace quillet
