// A list of several columns whose rows a model holds, for lists too long for items of their own. Without rows
// it says so.
#pragma once

#include "controls/EmptyText.h"

#include <QTreeView>

class RowsView : public QTreeView
{
    Q_OBJECT
public:
    explicit RowsView(QWidget *parent = nullptr) : QTreeView(parent)
    {
        setRootIsDecorated(false);
        setUniformRowHeights(true);
        setAllColumnsShowFocus(true);
    }
    ~RowsView() override { delete emptyText_; } // ahead of the model

    // Once.
    void setModel(QAbstractItemModel *model) override
    {
        QTreeView::setModel(model);
        if (model != nullptr && emptyText_ == nullptr) emptyText_ = new EmptyText(*this);
    }

    void setEmptyText(const QString &text)
    {
        if (emptyText_ != nullptr) emptyText_->set(text);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QTreeView::paintEvent(event);
        if (emptyText_ != nullptr) emptyText_->paint();
    }

private:
    EmptyText *emptyText_ = nullptr;
};
