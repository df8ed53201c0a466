// Measures the reading, the understanding and the writing of a large book of cards, and of one with
// photographs. Usage: bench_cartoes
#include "vcard/CardContent.h"
#include "vcard/CardReader.h"
#include "vcard/CardWriter.h"

#include <cstdio>
#include <QElapsedTimer>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace
{
double Memoria_Maior_MB()
{
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1e3;
}

QByteArray Livro(int cartoes, const QByteArray &fotografia)
{
    QByteArray livro;
    for (int i = 0; i < cartoes; ++i) {
        const QByteArray n = QByteArray::number(i);
        livro += "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:cartao-" + n + "\r\nN:Gonçalves;Conceição " + n +
                 ";;;\r\nFN:Conceição " + n + " Gonçalves\r\nTEL;TYPE=CELL,VOICE:+351 91" +
                 n.rightJustified(7, '0') + "\r\nEMAIL;TYPE=INTERNET:c" + n +
                 "@exemplo.pt\r\nADR;TYPE=HOME:;;Rua da Sé\\, " + n + ";Porto;;4000-001;Portugal\r\n" +
                 fotografia + "END:VCARD\r\n";
    }
    return livro;
}

QByteArray Fotografia(qsizetype bytes)
{
    const QByteArray texto = ("\xFF\xD8\xFF" + QByteArray(bytes, 'x')).toBase64();
    QByteArray linhas = "PHOTO;ENCODING=b;TYPE=JPEG:";
    for (qsizetype i = 0; i < texto.size(); i += 74)
        linhas += texto.mid(i, 74) + "\r\n ";
    return linhas + "\r\n";
}

void Medir(const char *nome, const QByteArray &livro)
{
    QElapsedTimer relogio;
    relogio.start();
    const CardFile lido = CardReader().read(livro);
    const qint64 leitura = relogio.restart();
    std::vector<CardContent> conteudos;
    for (const Card &cartao : lido.cards)
        conteudos.push_back(contentOf(cartao));
    const qint64 conteudo = relogio.restart();
    qsizetype escritos = 0;
    for (const CardContent &cada : conteudos)
        escritos += writtenCard(cada).size();
    const qint64 escrita = relogio.elapsed();
    std::printf("%-28s %6.1f MB  %6zu cards  read %5lld ms  content %5lld ms  written %5lld ms (%.1f MB)  "
                "%6.1f MB held\n",
                nome, static_cast<double>(livro.size()) / 1e6, lido.cards.size(),
                static_cast<long long>(leitura), static_cast<long long>(conteudo),
                static_cast<long long>(escrita), static_cast<double>(escritos) / 1e6, Memoria_Maior_MB());
}
} // namespace

int main()
{
    Medir("10,000 cards", Livro(10000, {}));
    Medir("2,500 cards with photographs", Livro(2500, Fotografia(47000)));
}
