#pragma once

#include "platform/store/ManagedObject.h"

namespace quillet {

// A further named text of a snippet. Main thread.
class Segment : public platform::ManagedObject {
public:
    enum Attribute : qsizetype { Code, CreationDate, Title };

    enum Relationship : qsizetype { OfSnippet };

    Segment();
};

} // namespace quillet
