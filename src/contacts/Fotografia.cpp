#include "contacts/Fotografia.h"

#include "data/Geral.h"
#include "platform/Picture.h"
#include "controls/Units.h"

#include <QLabel>

QString Caminho_Da_Fotografia(const Geral &geral, const QString &Fotografia)
{
    return pictureFile(geral.Pasta, Fotografia);
}

QString Caminho_No_Editor(const Geral &geral, const QString &Fotografia)
{
    return Fotografia.contains(u'\\') ? Caminho_Da_Fotografia(geral, Fotografia) : Fotografia;
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
