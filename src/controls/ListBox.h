// A list box whose rows carry a number of their own (ItemData), usually a key of the database.
// A row that is too long for the list tells itself in a tip, and a list without rows says so. Assigning
// ListIndex counts as a click, even when the index stays the same: code relies on it.
#pragma once

#include "controls/ListItems.h"

#include <memory>
#include <QListView>

class EmptyText;

class ListBox : public QListView
{
    Q_OBJECT
    // A sorted list puts each new row at its place in the order of names, behind equal ones.
    Q_PROPERTY(bool Sorted READ Sorted WRITE setSorted)
public:
    explicit ListBox(QWidget *parent = nullptr);
    ~ListBox() override;

    bool Sorted() const { return sorted_; }
    void setSorted(bool sorted) { sorted_ = sorted; }

    void AddItem(const QString &text);
    int NewIndex() const { return newIndex_; } // row of the last AddItem, -1 before the first
    void RemoveItem(int index);                // Failure for an index outside the list
    void Clear();
    // All rows anew. A list that holds the same rows as another shares them.
    void setItems(ListItems items);

    int ListCount() const;
    QString List(int index) const;
    std::string_view ListUtf8(int index) const; // as it lies in the list, until that changes
    int ItemData(int index) const;
    void setItemData(int index, int number);

    int ListIndex() const; // -1 without a selection
    // -1 takes the selection away without a click. Raises Failure for an index outside the list.
    void setListIndex(int index);

    void setEmptyText(const QString &text); // shown while there are no rows

    // While one lives the view waits, so that many rows come in at the price of one.
    class Filling
    {
    public:
        explicit Filling(ListBox &list);
        ~Filling();
        Filling(const Filling &) = delete;
        Filling &operator=(const Filling &) = delete;

    private:
        ListBox &list_;
    };

Q_SIGNALS:
    void Click();
    void DblClick();
    void RightButtonUp(const QPoint &globalPosition); // or the keyboard's menu key

protected:
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event = nullptr) const override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    class Rows;
    void checkIndex(int index) const;

    std::unique_ptr<Rows> rows_;
    EmptyText *emptyText_;
    bool sorted_ = false;
    bool assigning_ = false;
    int newIndex_ = -1;
};
