// A list of several columns. Without rows it says so.
#pragma once

#include "controls/EmptyText.h"

#include <QTreeWidget>

class ListView : public QTreeWidget
{
    Q_OBJECT
public:
    explicit ListView(QWidget *parent = nullptr) : QTreeWidget(parent) {}
    ~ListView() override { delete emptyText_; } // ahead of the model, which is reset when it goes

    void setEmptyText(const QString &text) { emptyText_->set(text); }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QTreeWidget::paintEvent(event);
        emptyText_->paint();
    }

private:
    EmptyText *emptyText_ = new EmptyText(*this);
};
