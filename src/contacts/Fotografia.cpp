#include "contacts/Fotografia.h"

#include "controls/Units.h"
#include "data/Fotografias.h"
#include "data/Geral.h"
#include "platform/Picture.h"

#include <QLabel>

QString Caminho_Da_Fotografia(const Geral &geral, const QString &Fotografia)
{
    return pictureFile(geral.Pasta, Fotografia);
}

QString Caminho_No_Editor(const Geral &geral, const QString &Fotografia)
{
    return Fotografia.contains(u'\\') ? Caminho_Da_Fotografia(geral, Fotografia) : Fotografia;
}

Picture Imagem_Da_Fotografia(Geral &geral, const QString &Fotografia)
{
    if (E_Da_Base(Fotografia)) return {FotografiasDaBase(geral.de).Ler(Fotografia), Fotografia};
    return Picture(Caminho_Da_Fotografia(geral, Fotografia));
}

Picture Imagem_No_Editor(Geral &geral, const QString &Fotografia)
{
    if (E_Da_Base(Fotografia)) return Imagem_Da_Fotografia(geral, Fotografia);
    return Picture(Caminho_No_Editor(geral, Fotografia));
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
