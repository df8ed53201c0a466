#include "controls/ListBox.h"

#include "controls/EmptyText.h"
#include "platform/Failure.h"

#include <QAbstractListModel>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QToolTip>

class ListBox::Rows final : public QAbstractListModel
{
public:
    int rowCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : items().count(); }
    // Asked for each row whenever the view lays its rows out.
    QModelIndex index(int row, int column = 0, const QModelIndex &parent = {}) const override
    {
        const bool there = row >= 0 && row < items_.count() && column == 0 && !parent.isValid();
        return there ? createIndex(row, column) : QModelIndex();
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(text(index.row())) : QVariant();
    }

    const ListItems &items() const { return items_; }
    QString text(int index) const { return QString::fromUtf8(items_.text(index)); }
    void setData(int index, int data) { items_.setData(index, data); }

    void insert(int index, std::string_view utf8)
    {
        if (!filling_) beginInsertRows({}, index, index);
        items_.insert(index, utf8);
        if (!filling_) endInsertRows();
    }

    void remove(int index)
    {
        beginRemoveRows({}, index, index);
        items_.remove(index);
        endRemoveRows();
    }

    void replace(ListItems items)
    {
        if (!filling_) beginResetModel();
        items_ = std::move(items);
        if (!filling_) endResetModel();
    }

    void beginFilling()
    {
        beginResetModel();
        filling_ = true;
    }
    void endFilling()
    {
        filling_ = false;
        endResetModel();
    }

private:
    ListItems items_;
    bool filling_ = false;
};

ListBox::Filling::Filling(ListBox &list) : list_(list) { list_.rows_->beginFilling(); }
ListBox::Filling::~Filling() { list_.rows_->endFilling(); }

ListBox::ListBox(QWidget *parent) : QListView(parent), rows_(std::make_unique<Rows>())
{
    setModel(rows_.get());
    emptyText_ = new EmptyText(*this);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListView::doubleClicked, this, &ListBox::DblClick);
}

ListBox::~ListBox() { setModel(nullptr); }

void ListBox::AddItem(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    const std::string_view letters(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    newIndex_ = sorted_ ? rows_->items().placeOf(letters) : ListCount();
    rows_->insert(newIndex_, letters);
}

void ListBox::RemoveItem(int index)
{
    checkIndex(index);
    const QScopedValueRollback quiet(assigning_, true); // the selection may move, which is nobody's click
    rows_->remove(index);
}

void ListBox::Clear()
{
    rows_->replace({});
    newIndex_ = -1;
}

void ListBox::setItems(ListItems items)
{
    if (sorted_) items.sort();
    rows_->replace(std::move(items));
    newIndex_ = -1;
}

int ListBox::ListCount() const { return rows_->items().count(); }

QString ListBox::List(int index) const
{
    checkIndex(index);
    return rows_->text(index);
}

std::string_view ListBox::ListUtf8(int index) const
{
    checkIndex(index);
    return rows_->items().text(index);
}

int ListBox::ItemData(int index) const
{
    checkIndex(index);
    return rows_->items().data(index);
}

void ListBox::setItemData(int index, int number)
{
    checkIndex(index);
    rows_->setData(index, number);
}

int ListBox::ListIndex() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.constFirst().row();
}

void ListBox::setListIndex(int index)
{
    if (index != -1) checkIndex(index);
    {
        const QScopedValueRollback quiet(assigning_, true);
        if (index == -1)
            clearSelection();
        else
            setCurrentIndex(rows_->index(index));
    }
    if (index != -1) Q_EMIT Click();
}

void ListBox::setEmptyText(const QString &text) { emptyText_->set(text); }

void ListBox::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListView::selectionChanged(selected, deselected);
    if (!assigning_ && !selected.isEmpty()) Q_EMIT Click();
}

// Once a row is selected, one always is: no key and no modifier takes the selection away.
QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex &index, const QEvent *) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

// Only the left button selects. A press on the row that is selected already changes nothing, and still is a
// click.
void ListBox::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) return;
    const int before = ListIndex();
    QListView::mousePressEvent(event);
    const bool onRow = indexAt(event->position().toPoint()).isValid();
    if (onRow && ListIndex() == before) Q_EMIT Click();
}

void ListBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) QListView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton) Q_EMIT RightButtonUp(event->globalPosition().toPoint());
}

void ListBox::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() != QContextMenuEvent::Keyboard) return; // the mouse has its own way above
    Q_EMIT RightButtonUp(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
}

void ListBox::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    emptyText_->paint();
}

bool ListBox::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
    const auto &help = static_cast<const QHelpEvent &>(*event);
    const QModelIndex row = indexAt(help.pos());
    const bool cut = row.isValid() && sizeHintForIndex(row).width() > viewport()->width();
    QToolTip::showText(help.globalPos(), cut ? Qt::convertFromPlainText(List(row.row())) : QString(),
                       viewport());
    return true;
}

void ListBox::checkIndex(int index) const
{
    if (index < 0 || index >= ListCount())
        throw Failure(Failure::InvalidPropertyValue, objectName(), QStringLiteral("No row %1").arg(index));
}
