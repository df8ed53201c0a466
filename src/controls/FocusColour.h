// The one rule of colour for every field: dark letters on pale yellow while it has the keyboard, the
// palette's own colours otherwise. A field whose background means something itself has the property
// ownBackground, and is left alone.
#pragma once

#include <QObject>

class QApplication;

class FocusColour final : public QObject
{
    Q_OBJECT
public:
    // Watches every field of the application, present and future. Read-only displays are left alone.
    static void install(QApplication &application);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using QObject::QObject;
};
