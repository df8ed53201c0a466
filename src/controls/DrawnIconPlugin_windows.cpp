// For a system whose toolkit draws no SVG: icons that name a drawing are the program's own drawn icons.
#include "controls/DrawnIcon.h"

#include <QIconEnginePlugin>
#include <QtPlugin>

class DrawnIconPlugin final : public QIconEnginePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QIconEngineFactoryInterface_iid FILE "DrawnIconPlugin.json")
public:
    QIconEngine *create(const QString &path) override { return drawnIconEngine(path); }
};

Q_IMPORT_PLUGIN(DrawnIconPlugin)
#include "DrawnIconPlugin_windows.moc"
