#include "interchange/RegistoMorvex.h"

#include "platform/Failure.h"
#include "platform/TextEncoding.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
constexpr QStringView separadores = u"¥¦¶æÞ¢§Æ¿¡ÿ±ßøµ¤";
static_assert(separadores.size() == registo_morvex::campos);

constexpr std::array<QStringView, 12> meses{u"janeiro",  u"fevereiro", u"março",    u"abril",
                                            u"maio",     u"junho",     u"julho",    u"agosto",
                                            u"setembro", u"outubro",   u"novembro", u"dezembro"};

[[noreturn]] void Chamada_Invalida(const QString &registo)
{
    constexpr int chamada_invalida = 5;
    throw Failure(chamada_invalida, u"RegistoMorvex"_s, u"A separator is missing: %1"_s.arg(registo));
}

QString Texto_Do_Ficheiro(const QString &caminho)
{
    const QFileInfo info(caminho);
    if (info.exists() && !info.isFile()) // a pipe would be waited for, and a device may never end
        throw Failure(Failure::PathFileAccess, caminho, u"This is no ordinary file: %1"_s.arg(caminho));
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly))
        throw Failure(Failure::FileNotFound, caminho, u"The file could not be read: %1"_s.arg(caminho));
    const QByteArray bytes = ficheiro.readAll();
    if (ficheiro.error() != QFileDevice::NoError)
        throw Failure(Failure::PathFileAccess, caminho,
                      u"The file could not be read to its end: %1"_s.arg(caminho));
    return decodedText(bytes, "windows-1252").text;
}

// Nothing is ever added, yet a file that can't be written is no good.
void Abrir_Para_Acrescentar(const QString &caminho)
{
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadWrite | QIODevice::Append))
        throw Failure(Failure::PathFileAccess, caminho,
                      u"The file could not be opened for writing: %1"_s.arg(caminho));
}
} // namespace

QStringList registo_morvex::Ler_Linhas(const QString &caminho)
{
    QString texto = Texto_Do_Ficheiro(caminho);
    texto.replace("\r\n"_L1, "\r"_L1);
    QStringList linhas = texto.split(u'\r');
    if (linhas.constLast().isEmpty()) linhas.removeLast(); // what stands behind the last line end is no line
    Abrir_Para_Acrescentar(caminho);
    // The table holds 5,000 lines, and one place behind the last line is looked at.
    if (linhas.size() >= mais_linhas)
        throw Failure(Failure::SubscriptOutOfRange, caminho, u"%1 lines are too many"_s.arg(linhas.size()));
    return linhas;
}

QStringList registo_morvex::Registos(const QStringList &linhas)
{
    QStringList registos = linhas.mid(1);
    registos.removeAll(QString());
    return registos;
}

// Each search starts where the one before it ended; one that starts nowhere is no valid call.
std::array<QString, registo_morvex::campos> registo_morvex::Separar(const QString &registo)
{
    std::array<QString, campos> separados;
    qsizetype anterior = -1;
    for (std::size_t i = 0; i < campos; ++i) {
        const qsizetype fim =
            registo.indexOf(separadores[static_cast<qsizetype>(i)], std::max<qsizetype>(anterior, 0));
        const bool ultimo = i + 1 == campos;
        if (fim < 0 && !ultimo) Chamada_Invalida(registo);
        if (fim >= 0) separados[i] = registo.mid(anterior + 1, fim - anterior - 1);
        anterior = fim;
    }
    return separados;
}

QString registo_morvex::Numero_Do_Mes(const QString &mes)
{
    const auto achado = std::find(meses.begin(), meses.end(), mes);
    return achado == meses.end() ? mes : QString::number(achado - meses.begin() + 1);
}
