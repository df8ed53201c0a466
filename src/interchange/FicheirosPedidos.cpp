#include "interchange/FicheirosPedidos.h"

#include "data/Geral.h"
#include "interchange/Intercambio.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

#include <QDir>
#include <QFileInfo>
#include <QMainWindow>

using namespace Qt::StringLiterals;

namespace
{
// Not in the table of texts: an older database lacks it.
constexpr Translations nao_se_le{
    u"Esta versão não lê ficheiros deste tipo:",
    u"Esta versão não lê arquivos deste tipo:",
    u"This version cannot read files of this kind:",
    u"Esta versión no lee archivos de este tipo:",
    u"Questa versione non legge i file di questo tipo:",
    u"Cette version ne lit pas les fichiers de ce type\u00a0:",
    u"Diese Version kann Dateien dieser Art nicht lesen:",
};
} // namespace

constexpr std::array<FicheirosPedidos::Resposta, 4> FicheirosPedidos::Respostas{{
    {u"mdb", &FicheirosPedidos::Importar},
    {u"dat", &FicheirosPedidos::Importar},
    {u"vcf", &FicheirosPedidos::Recusar},
    {u"csv", &FicheirosPedidos::Recusar},
}};

FicheirosPedidos::FicheirosPedidos(QMainWindow &janela, Intercambio &intercambio, Geral &geral,
                                   Platform &platform)
    : QObject(&janela), janela_(janela), intercambio_(intercambio), geral_(geral), platform_(platform)
{
}

QStringList FicheirosPedidos::Terminacoes()
{
    QStringList todas;
    for (const Resposta &resposta : Respostas)
        todas << QString::fromUtf16(resposta.terminacao);
    return todas;
}

void FicheirosPedidos::Abrir(const QString &caminho)
{
    const QString terminacao = QFileInfo(caminho).suffix().toLower();
    for (const Resposta &resposta : Respostas)
        if (terminacao == QStringView(resposta.terminacao)) return (this->*resposta.abrir)(caminho);
}

void FicheirosPedidos::Importar(const QString &caminho) { intercambio_.Importar(caminho); }

void FicheirosPedidos::Recusar(const QString &caminho)
{
    const QString idioma = spokenLanguage(geral_.IdiomaActual);
    platform_.boxes.show(translated(nao_se_le, idioma) + u"\r\n"_s + QDir::toNativeSeparators(caminho),
                         box::exclamation, janela_.windowTitle(), &janela_);
}
