#include "interchange/FicheirosPedidos.h"

#include "interchange/Intercambio.h"

#include <QFileInfo>

constexpr std::array<FicheirosPedidos::Resposta, 4> FicheirosPedidos::Respostas{{
    {u"mdb", &FicheirosPedidos::Importar},
    {u"dat", &FicheirosPedidos::Importar},
    {u"vcf", &FicheirosPedidos::ImportarContactos},
    {u"csv", &FicheirosPedidos::ImportarContactos},
}};

FicheirosPedidos::FicheirosPedidos(QObject &dono, Intercambio &intercambio)
    : QObject(&dono), intercambio_(intercambio)
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

void FicheirosPedidos::ImportarContactos(const QString &caminho) { intercambio_.ImportarContactos(caminho); }
