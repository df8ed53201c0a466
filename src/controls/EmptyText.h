// The quiet line that a list shows for as long as it has no rows. A screen reader reads it as the list's
// description.
#pragma once

#include <QObject>
#include <QString>

class QAbstractItemView;

class EmptyText final : public QObject
{
    Q_OBJECT
public:
    // The view has its model already, keeps it, and owns this.
    explicit EmptyText(QAbstractItemView &view);

    void set(const QString &text);
    QString shown() const; // empty while there are rows
    void paint() const;    // over what the view has painted, in its paintEvent

private:
    void refresh();

    QAbstractItemView &view_;
    QString text_;
};
