#pragma once

#include "Tessarine/textview/TextViewHost.h"

#include <QtCore/QObject>

namespace tessarine {

// Gathers what a text view tells its host, until the event loop is reached.
class TextViewUpdates final : public TextViewHost {
public:
    struct Changes {
        bool scrolling = false;
        bool caret = false;
    };

    // Who shows them.
    class Receiver {
    public:
        virtual ~Receiver() = default;

        virtual void layoutTextView() = 0;
        virtual void textViewHasChanged(const Changes& changes) = 0;
        virtual void editingHasChanged() = 0;
        virtual void textWasReplaced(const TextRange& range, std::u16string_view oldText,
                                     std::u16string_view newText) = 0;
        virtual void allTextWasReplaced() = 0;
    };

    // Outlives it, or lets go of the text view before.
    explicit TextViewUpdates(Receiver& receiver)
        : m_receiver(receiver) {}

    void textViewNeedsLayout() override { schedule(); }

    void textViewDidScroll() override;
    void textViewDidMoveCaret() override;

    void textViewDidChangeEditing() override { m_receiver.editingHasChanged(); }

    void textViewDidReplace(const TextRange& range, std::u16string_view oldText,
                            std::u16string_view newText) override {
        m_receiver.textWasReplaced(range, oldText, newText);
    }

    void textViewDidReplaceAll() override { m_receiver.allTextWasReplaced(); }

private:
    void schedule();
    void deliver();

    Receiver& m_receiver;
    Changes m_changes;
    bool m_isScheduled = false;
    QObject m_queue; // what is still queued ends with it
};

} // namespace tessarine
