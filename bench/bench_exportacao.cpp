// Measures the export of a book of 10,000 contacts in every format, beside its floor in the same run: the
// same contacts read by the bare command and the same bytes written. Usage: bench_exportacao [folder for the
// files]
#include "controls/Application.h"
#include "interchange/ContactosAoAcaso.h"
#include "interchange/ExportacaoDeContactos.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <cstdio>
#include <QElapsedTimer>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int contactos = 10'000;
constexpr int passo = 8; // milliseconds, as the form has it

double Memoria_Maior_MB()
{
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1e3;
}

void Encher(Sistema &s)
{
    ContactosAoAcaso acaso(1);
    s.Escrever(u"DELETE FROM TblLista"_s);
    s.geral.de.Juntar([&] {
        for (int i = 0; i < contactos; ++i) {
            const auto v = acaso.Um().valores;
            s.geral.de.Executar("cmdAdicionarNome", {v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8],
                                                     v[9], v[10], v[11], v[12], v[13], v[14], v[15], 1});
        }
    });
}

QByteArray Bytes(const QString &caminho)
{
    QFile ficheiro(caminho);
    return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
}

qint64 Chao(Sistema &s, const QList<int> &ids, const QString &caminho)
{
    const QByteArray bytes = Bytes(caminho);
    QElapsedTimer relogio;
    relogio.start();
    for (const int id : ids) {
        Recordset &rs = s.geral.de.Abrir("cmdEditarNome", {id});
        rs.Close();
    }
    if (!replaceFile(caminho, bytes)) std::puts("the floor was not written");
    return relogio.elapsed();
}

void Medir(Sistema &s, const char *nome, FormatoDeSaida formato, const QString &caminho)
{
    const QList<int> ids = ContactosVisiveis(s.geral).Todos();
    QElapsedTimer inteiro;
    inteiro.start();
    qint64 pausa = 0;
    ExportacaoDeContactos exportacao(s.geral, {ids, formato, true, false, caminho});
    while (!exportacao.Acabou()) {
        QElapsedTimer relogio;
        relogio.start();
        exportacao.Avancar(passo);
        pausa = std::max(pausa, relogio.elapsed());
    }
    exportacao.Concluir();
    const qint64 tempo = inteiro.elapsed();
    std::printf(
        "%-28s %6d contacts  %5.1f MB  %5lld ms  floor %5lld ms  longest step %3lld ms  %6.1f MB held\n",
        nome, exportacao.Escritos(), static_cast<double>(QFileInfo(caminho).size()) / 1e6,
        static_cast<long long>(tempo), static_cast<long long>(Chao(s, ids, caminho)),
        static_cast<long long>(pausa), Memoria_Maior_MB());
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("MORVEX_ENVIADOS", MORVEX_ENVIADOS);
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    Sistema s;
    Encher(s);
    const QTemporaryDir propria;
    const QString pasta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : propria.path();
    Medir(s, "3.0, new UIDs remembered", FormatoDeSaida::Cartao3, pasta + u"/a.vcf"_s);
    Medir(s, "3.0 again", FormatoDeSaida::Cartao3, pasta + u"/3.vcf"_s);
    Medir(s, "4.0", FormatoDeSaida::Cartao4, pasta + u"/4.vcf"_s);
    Medir(s, "table for a spreadsheet", FormatoDeSaida::TabelaExcel, pasta + u"/folha.csv"_s);
    Medir(s, "table for others", FormatoDeSaida::TabelaOutros, pasta + u"/outros.csv"_s);
}
