#include "data/Fotografias.h"

#include "data/DE.h"

bool E_Da_Base(const QString &Fotografia) { return Fotografia.startsWith(QLatin1StringView("bd:")); }

void FotografiasDaBase::Guardar(const QString &Fotografia, const QByteArray &bytes)
{
    de_.Executar("cmdGuardarFotografia", {Fotografia, bytes});
}

QByteArray FotografiasDaBase::Ler(const QString &Fotografia)
{
    if (!E_Da_Base(Fotografia) || !de_.Em_Dia()) return {};
    Recordset &rs = de_.Abrir("cmdLerFotografia", {Fotografia});
    QByteArray bytes = rs.Eof() ? QByteArray() : rs.Fields("Imagem").bytes();
    rs.Close();
    return bytes;
}
