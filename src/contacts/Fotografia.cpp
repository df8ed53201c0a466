#include "contacts/Fotografia.h"

#include "data/Geral.h"
#include "platform/Picture.h"
#include "platform/Units.h"

#include <QDir>
#include <QLabel>

using namespace Qt::StringLiterals;

QString Caminho_Da_Fotografia(const Geral &geral, const QString &Fotografia)
{
    const bool completo = Fotografia.mid(1, 2) == ":\\"_L1 || Fotografia.startsWith("\\\\"_L1) ||
                          QDir::isAbsolutePath(Fotografia);
    return completo ? Fotografia : geral.Ficheiro(Fotografia);
}

void Mostrar_Fotografia(QLabel &Thumb, const Picture &imagem, const QRectF &lugar)
{
    const QRect pontos = pixelRect(lugar.left(), lugar.top(), lugar.width(), lugar.height());
    const qreal densidade = Thumb.devicePixelRatioF();
    QImage desenho = imagem.image((QSizeF(pontos.size()) * densidade).toSize().expandedTo({1, 1}));
    desenho.setDevicePixelRatio(densidade);
    Thumb.setGeometry(pontos);
    Thumb.setPixmap(QPixmap::fromImage(desenho));
}
