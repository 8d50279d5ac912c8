#pragma once

#include "Tessarine/document/IndentStrategy.h"
#include "Tessarine/document/LineEnding.h"
#include "Tessarine/document/TextLocation.h"
#include "Tessarine/view/QtTextView.h"
#include "examples/editor/window/EditorLook.h"
#include "examples/editor/window/PageFile.h"
#include "languages/catalogue/Language.h"

#include <QtWidgets/QWidget>

#include <memory>
#include <optional>

namespace tessarine::editor {

class FindBar;
class FindSession;
class GoToLineBar;
class NoticeBar;
using languages::Language;

// What a tab holds: a text, its file, and the bars around it. Main thread.
class EditorPage : public QWidget {
    Q_OBJECT

public:
    EditorPage(EditorServices& services, const EditorLook& look);
    ~EditorPage() override;

    QtTextView& view() const { return *m_view; }

    TextView& textView() const { return m_view->textView(); }

    PageFile& file() { return m_file; }

    FindSession& find() { return *m_find; }

    NoticeBar& notice() { return *m_notice; }

    void open(const QString& path);

    // Untitled, empty and never touched: a file that is opened may take its place.
    bool isUnused() const;

    bool canSave() const { return !m_file.isLoading() && !m_file.isMalformed(); }

    const std::optional<Language>& language() const { return m_language; }

    void setLanguage(const std::optional<Language>& language);

    void setIndentStrategy(const IndentStrategy& strategy);

    // All line breaks become such ones.
    void setLineEndings(LineEnding lineEndings);

    void openGoToLine();
    void goTo(const TextLocation& place);

    // After a change of the settings.
    void applyLook(const EditorLook& look);

Q_SIGNALS:
    // Anything that a title, a menu or a status line may show of it.
    void stateChanged();

    // Nothing of the file is shown.
    void openFailed(const QString& message);

private:
    class Delegate;

    void makeLayout();
    void connectFile();
    void connectView();
    void show(const OpenedDocument& document);
    void showRead(const OpenedDocument& document);
    void parseLongText();
    void fail(const LoadError& error);
    void changedOnDisk();
    void removedFromDisk();
    void textDidChange();
    void selectionDidChange();

    EditorServices& m_services;
    EditorLook m_look;
    QtTextView* m_view;
    NoticeBar* m_notice;
    FindBar* m_findBar;
    GoToLineBar* m_goToLineBar;

    PageFile m_file;
    std::optional<Language> m_language;
    bool m_isOfFile = false; // what shows, or was
    std::unique_ptr<FindSession> m_find;
    std::shared_ptr<Delegate> m_delegate;
};

} // namespace tessarine::editor
