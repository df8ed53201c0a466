// Whether the desktop asks for dark windows.
#pragma once

#include <memory>
#include <QObject>

class ColourScheme final : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    // Whether the windows are to have the program's own colours: a desktop may ask for some of its own. The toolkit's are
    // plain where it found none.
    static bool wantsOwnColours(bool plain);

    // Asks, and listens from then on; never waits. Where the desktop has no such setting nothing is ever
    // told.
    void watch();

Q_SIGNALS:
    void darkTold(bool dark);

private:
    std::unique_ptr<QObject> setting_; // who listens
};
