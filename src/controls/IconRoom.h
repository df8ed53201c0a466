// A column in which only some rows have an icon: the others leave room for one, so that all texts stand in
// line.
#pragma once

#include <QStyledItemDelegate>

class IconRoom final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features |= QStyleOptionViewItem::HasDecoration;
    }
};
