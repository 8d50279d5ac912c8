#pragma once

#include <Qsci/qsciscintillabase.h>
#include <QtCore/QByteArray>

namespace tessarine {

// QScintilla with a text of UTF-8 in it.
class ScintillaText {
public:
    explicit ScintillaText(const QByteArray& bytes) {
        send(QsciScintillaBase::SCI_SETCODEPAGE, QsciScintillaBase::SC_CP_UTF8);
        send(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 0);
        send(QsciScintillaBase::SCI_ALLOCATE, static_cast<unsigned long>(bytes.size()) + 1000);
        send(QsciScintillaBase::SCI_ADDTEXT, static_cast<unsigned long>(bytes.size()), bytes.constData());
        send(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 1);
        // Without it each edit counts the text's characters for accessibility, which takes 100 ms.
        send(QsciScintillaBase::SCI_SETMODEVENTMASK, 0);
    }

    qint64 length() const { return send(QsciScintillaBase::SCI_GETLENGTH); }

    long send(unsigned message, unsigned long first = 0, long second = 0) const {
        return m_editor.SendScintilla(message, first, second);
    }

    long send(unsigned message, unsigned long first, const char* text) const {
        return m_editor.SendScintilla(message, first, text);
    }

private:
    QsciScintillaBase m_editor;
};

} // namespace tessarine
