// The notification area, as the program needs it: one icon at a time in one of two looks, with tip and menu.
#pragma once

#include <QObject>

class QMenu;

class Tray : public QObject
{
    Q_OBJECT
public:
    // The two hidden picture boxes that lend the icon its look and receive its clicks.
    enum class Look {
        Picture1, // ordinary
        Picture2, // locked
    };
    static constexpr int tipLength = 63; // a longer tip is cut

    using QObject::QObject;

    // Shows the icon; on a desktop whose notification area comes up later, as soon as it does. The menu stays
    // the caller's and opens on a right click.
    virtual void add(Look look, const QString &tip, QMenu *menu) = 0;

    // Takes the icon away if it is shown with that look.
    virtual void remove(Look look) = 0;

    // Whether somebody shows the icon: without a host a hidden window would be out of reach.
    virtual bool hasHost() const = 0;

Q_SIGNALS:
    // A host has come up, and shows the icon; the last one has gone, and the icon with it.
    void hostCame();
    void hostGone();

    void leftButtonDown(Tray::Look look);
    void menuAboutToOpen(Tray::Look look);
};
