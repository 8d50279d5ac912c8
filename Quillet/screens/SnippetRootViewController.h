#pragma once

#include "Quillet/core/NavigationDelegates.h"

#include <QtWidgets/QWidget>

namespace quillet {

class HomeListViewController;
class SnippetViewController;

// The window's root: the list beside the editor when there is room, one of the two when there is not.
// Main thread.
class SnippetRootViewController : public QWidget,
                                  public SnippetSelectionDelegate,
                                  public SnippetCreationDelegate,
                                  public SnippetEditDelegate {
    Q_OBJECT

public:
    explicit SnippetRootViewController(QWidget* parent = nullptr);

    void didSelect(const std::shared_ptr<Snippet>& snippet) override;
    void didDelete(const std::shared_ptr<Snippet>& snippet) override;
    void didCreate(const std::shared_ptr<Snippet>& snippet) override;
    void didEdit(const std::shared_ptr<Snippet>& snippet) override;

    // The editor's save, in place.
    void save();
    void presentNewModally();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    enum class Column { Primary, Secondary };

    void showColumn(Column column);
    void layOutColumns();
    bool confirmsLoss(const QString& reason);

    HomeListViewController* m_homeListViewController;
    SnippetViewController* m_snippetViewController;
    Column m_column = Column::Primary; // the one on screen when there is room for one
};

} // namespace quillet
