#include "cards/DestinosDeSaida.h"

#include "cards/NumeroDoCartao.h"
#include "platform/Failure.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
Failure Nao_Se_Escreve(const QString &caminho)
{
    return {Failure::PathFileAccess, caminho, u"The file can't be written: %1"_s.arg(caminho)};
}

// File systems count the bytes of a name up to 255, of which number, ending and a working copy want some.
constexpr qsizetype mais_letras = 100;
constexpr qsizetype mais_bytes = 200;

bool E_Nome_De_Aparelho(const QString &nome)
{
    static const QRegularExpression aparelho(u"^(con|prn|aux|nul|com\\d|lpt\\d)(\\..*)?$"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    return aparelho.match(nome).hasMatch();
}
} // namespace

QString Nome_De_Ficheiro(const QString &nome)
{
    QString limpo;
    for (const QChar sinal : nome.normalized(QString::NormalizationForm_C)) {
        const bool separa = QStringView(u"/\\:*?\"<>|").contains(sinal);
        const bool invisivel = sinal.category() == QChar::Other_Control ||
                               sinal.category() == QChar::Other_Format; // such turn a name round
        if (!invisivel) limpo += separa ? QChar(u'_') : sinal;
    }
    limpo = Cortado(limpo.simplified(), mais_letras);
    while (limpo.toUtf8().size() > mais_bytes)
        limpo = Cortado(limpo, limpo.size() - 1);
    static const QRegularExpression pontas(u"^[. ]+|[. ]+$"_s); // hidden by one system, cut off by another
    limpo.remove(pontas);
    if (limpo.isEmpty() || E_Nome_De_Aparelho(limpo)) limpo.prepend(u'_');
    return limpo;
}

NumFicheiro::NumFicheiro(QString caminho) : caminho_(std::move(caminho)), ficheiro_(caminho_) {}

void NumFicheiro::Juntar(const QString &, const QByteArray &bytes)
{
    if (!ficheiro_.append(bytes)) throw Nao_Se_Escreve(caminho_);
}

void NumFicheiro::Concluir()
{
    if (!ficheiro_.commit()) throw Nao_Se_Escreve(caminho_);
}

NumaPasta::NumaPasta(QString pasta, const QString &terminacao)
    : pasta_(std::move(pasta)), terminacao_(u'.' + terminacao)
{
    const QStringList la = QDir(pasta_).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    for (const QString &nome : la)
        ocupados_.insert(nome.normalized(QString::NormalizationForm_C).toLower());
}

NumaPasta::~NumaPasta()
{
    for (const QString &caminho : escritos_)
        QFile::remove(caminho);
}

// Namesakes are numbered; where the last number was is remembered, for there may be thousands of them.
QString NumaPasta::Livre(const QString &nome)
{
    const QString base = Nome_De_Ficheiro(nome);
    int &numero = proximo_[base.toLower()];
    QString livre;
    do {
        ++numero;
        livre = (numero == 1 ? base : u"%1 (%2)"_s.arg(base).arg(numero)) + terminacao_;
    } while (ocupados_.contains(livre.toLower()));
    ocupados_.insert(livre.toLower());
    return livre;
}

void NumaPasta::Juntar(const QString &nome, const QByteArray &bytes)
{
    const QString caminho = QDir(pasta_).filePath(Livre(nome));
    if (!replaceFile(caminho, bytes)) throw Nao_Se_Escreve(caminho);
    escritos_ << caminho;
}
