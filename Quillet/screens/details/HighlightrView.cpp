#include "Quillet/screens/details/HighlightrView.h"

#include "Quillet/screens/code/CodeFont.h"
#include "Quillet/screens/details/AccessiblePreview.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

const QString dummyCode = QStringLiteral("class Hello: BaseClass {\n"
                                         "    let message = \"hello, world\"\n"
                                         "\n"
                                         "    func saySomething() -> String {\n"
                                         "        return message\n"
                                         "    }\n"
                                         "}");

void setBackground(QWidget& widget, const QColor& color) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, color);
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

} // namespace

HighlightrView::HighlightrView(QWidget* parent)
    : QWidget(parent)
    , m_textView(new platform::TextView(this))
    , m_textStorage(new CodeAttributedString(*m_textView)) {
    describePreviewsAsPictures();
    setAccessibleName(QStringLiteral("Preview"));
    m_textStorage->setParent(this);
    m_textView->setFrameShape(QFrame::NoFrame);
    m_textView->setReadOnly(true);
    m_textView->setTextInteractionFlags(Qt::NoTextInteraction);
    m_textView->setFocusPolicy(Qt::NoFocus);
    m_textView->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_textView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_textView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_textView->document()->setDocumentMargin(12);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_textView);
    m_textStorage->setCodeFont(codeFont());
    m_textStorage->setLanguage(m_language);
    m_textStorage->setAttributedString({dummyCode, {}});
    setTheme(m_theme);
}

void HighlightrView::setTheme(const QString& theme) {
    m_theme = theme;
    m_textStorage->highlightr()->setTheme(theme);
    m_textStorage->themeChanged();
    const QColor background = QColor::fromRgba(m_textStorage->highlightr()->theme()->themeBackgroundColor());
    setBackground(*this, background);
    if (parentWidget()) setBackground(*parentWidget(), background);
}

} // namespace quillet
