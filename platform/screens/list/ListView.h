#pragma once

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/list/SwipeAction.h"
#include "platform/screens/menus/Menu.h"

#include <QtWidgets/QAbstractItemView>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

enum class SlideWay;
class DisclosureAnimation;
class ListKeys;
class ListMemory;
class ListPointer;
class VisibleRows;
struct RowLook;
struct RowParts;
struct VisibleRow;

// The list of every screen: rounded groups of rows, headers between them, rows that open and close over the
// rows below them, swiping, context menus, dragging, all by finger, mouse and keyboard. Shows any item model,
// of a hundred thousand rows as smoothly as of ten: only what is in view is asked for its looks.
//
// Keys: arrows, Home, End, Page Up, Page Down; Right opens and Left closes, the other way round where the
// text runs from right to left; Return and Space activate; Delete asks to delete; Menu and Shift+F10 open the
// context menu; letters find the next visible row that starts with them. Buttons of rows are reached by Tab.
//
// Assistive tools see a tree of rows, with the buttons of rows below them. Main thread.
class ListView : public QAbstractItemView {
    Q_OBJECT

public:
    // What the model says of a row beside Qt::DisplayRole, its title. All but the title may be missing.
    // StyleRole tells something at the top level alone: below it all are rows.
    enum Role {
        StyleRole = Qt::UserRole + 100, // RowStyle as int; Row if missing
        SymbolRole,                     // its leading image
        TintRole,                       // Asset of the image, as int; Accent if missing
        DetailRole,                     // a text at its end
        AccessoryRole,                  // Accessory as int
        GroupRole,                      // bool: has a disclosure, also without any rows below
        ButtonSymbolRole,               // a button at its end
        ButtonNameRole,                 // what that is called
        KeyRole,                        // QString, equal over resets of the model for what is the same row
    };

    enum class RowStyle : int {
        Header,        // stands on the background, over a card of its rows
        Row,           // on the card
        SectionHeader, // a small heading over a card; cannot be chosen
    };

    // Unchecked shows nothing: a row that can have a checkmark, and has none.
    enum class Accessory { None, Chevron, Checkmark, Unchecked };

    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;

    // Which groups are open is the owner's to keep: `contains` is asked at every rebuild, `set` is called
    // when the user opens or closes one and is followed by a question to `contains`. A model without groups
    // needs none. Section headers are always open, and nobody is asked.
    struct OpenRows {
        std::function<bool(const QModelIndex&)> contains;
        std::function<void(const QModelIndex&, bool)> set;
    };

    void setOpenRows(OpenRows openRows);
    bool isOpen(const QModelIndex& index) const;
    // As the user's press on the row.
    void setOpen(const QModelIndex& index, bool isOpen);

    // None where a row has no menu.
    std::function<std::optional<Menu>(const QModelIndex&)> contextMenu;
    // From the row's end inward; none where a row does not swipe. A full swipe takes the first.
    std::function<std::vector<SwipeAction>(const QModelIndex&)> swipeActions;

    // What the groups of rows are painted on.
    Asset cardColor = Asset::Card;

    // QAbstractItemView
    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void setModel(QAbstractItemModel* model) override;
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
    void reset() override;
    void keyboardSearch(const QString& text) override;
    void doItemsLayout() override;

Q_SIGNALS:
    // A press on a row, or Return. Groups open and close instead.
    void rowActivated(const QModelIndex& index);
    void buttonPressed(const QModelIndex& index);
    void deleteRequested(const QModelIndex& index);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    friend class AccessibleList;
    friend class AccessibleRow;
    friend class AccessibleRowButton;
    friend class ListKeys;
    friend class ListPointer;

    VisibleRows& rows() const;
    // In the coordinates of the viewport.
    QRect rectOf(const VisibleRow& row) const;
    RowParts partsOf(const VisibleRow& row) const;
    RowLook lookOf(const VisibleRow& row) const;
    void paintRow(QPainter& painter, const VisibleRow& row) const;

    void connectModel();
    void forgetLayout();
    void restore();
    void slideStep(const QModelIndex& index, SlideWay way, double part, int pixels);
    void showOpenness(const QModelIndex& index);

    // What a press on a row does.
    void activate(const QModelIndex& index);
    void pressButton(const QModelIndex& index);
    // Makes it the current row, and leaves the selection alone.
    void moveTo(const QModelIndex& index);
    void updateRow(const QModelIndex& index);
    // To assistive tools: the current row or its button, while the list has the focus.
    void tellFocus();

    OpenRows m_openRows;
    std::unique_ptr<VisibleRows> m_rows;
    bool m_isLaidOut = false;
    std::unique_ptr<DisclosureAnimation> m_disclosure;
    std::unique_ptr<ListMemory> m_memory;
    std::unique_ptr<ListKeys> m_keys;
    std::unique_ptr<ListPointer> m_pointer;
};

} // namespace platform
