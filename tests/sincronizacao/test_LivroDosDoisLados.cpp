// What a run brings into the book and what it leaves in it, column by column.
#include "sincronizacao/MesaDaSincronizacao.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
using Mesa = MesaDaSincronizacao;

const QByteArray tudo =
    "TEL;TYPE=HOME:2101\r\nTEL;TYPE=WORK:2102\r\nTEL;TYPE=FAX:2103\r\nTEL;TYPE=CELL:9101\r\n"
    "TEL;TYPE=CELL:9102\r\nTEL;TYPE=CELL:9103\r\nEMAIL:um@x.example\r\nEMAIL:dois@x.example\r\n"
    "URL:http://x.example/\r\nADR:;;Rua Nova;;;;\r\nBDAY:1975-03-04\r\nNOTE:Uma nota\r\n";
const QStringList colunas{u"Nome"_s,       u"Telefone1"_s,  u"Telefone2"_s, u"Fax"_s,    u"Telemovel1"_s,
                          u"Telemovel2"_s, u"Telemovel3"_s, u"Dia"_s,       u"Mes"_s,    u"Ano"_s,
                          u"Email1"_s,     u"Email2"_s,     u"Website"_s,   u"Morada"_s, u"Obs"_s};
const QStringList valores{u"Ana Silva"_s,
                          u"2101"_s,
                          u"2102"_s,
                          u"2103"_s,
                          u"9101"_s,
                          u"9102"_s,
                          u"9103"_s,
                          u"4"_s,
                          u"3"_s,
                          u"1975"_s,
                          u"um@x.example"_s,
                          u"dois@x.example"_s,
                          u"http://x.example/"_s,
                          u"Rua Nova"_s,
                          u"Uma nota"_s};

QStringList Ler(Mesa &m, int ID)
{
    QStringList lidos;
    for (const QString &coluna : colunas)
        lidos << m.Valor(ID, coluna);
    return lidos;
}
} // namespace

class TestLivroDosDoisLados : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_cartao_novo_enche_cada_coluna_com_o_seu_valor()
    {
        Mesa m;
        m.Por_La(u"u1"_s, u"Ana Silva"_s, tudo);
        m.Correr();
        QCOMPARE(Ler(m, m.ID_De(u"Ana Silva"_s)), valores);
    }

    void um_cartao_mudado_muda_cada_coluna()
    {
        Mesa m;
        m.Por_La(u"u1"_s, u"Outra"_s);
        m.Correr();
        const int ID = m.ID_De(u"Outra"_s);
        m.Por_La(u"u1"_s, u"Ana Silva"_s, tudo);
        m.Correr();
        QCOMPARE(Ler(m, ID), valores);
    }

    void um_cartao_que_perde_tudo_esvazia_cada_coluna()
    {
        Mesa m;
        m.Por_La(u"u1"_s, u"Ana Silva"_s, tudo);
        m.Correr();
        const int ID = m.ID_De(u"Ana Silva"_s);
        m.Por_La(u"u1"_s, u"Ana Silva"_s);
        m.Correr();
        QCOMPARE(Ler(m, ID), QStringList{u"Ana Silva"_s} + QStringList(colunas.size() - 1));
    }

    void o_cartao_de_outra_pessoa_com_o_nome_que_o_nosso_teria_nao_e_o_nosso()
    {
        Mesa m;
        const int ana = m.Contacto(u"Ana Silva"_s, u"912345678"_s);
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"create"_s) && m.servidor.cartoes.empty())
                m.servidor.Por(pedido.mid(7),
                               Mesa::Cartao(u"x"_s, u"Rui Costa"_s, "TEL;TYPE=CELL:961111111\r\n"));
            return RemoteError();
        };
        m.Correr();
        QCOMPARE(m.Nomes(u"Nome || Telemovel1"_s),
                 (QStringList{u"Ana Silva912345678"_s, u"Rui Costa961111111"_s}));
        QCOMPARE(m.Valor(ana, u"Nome"_s), u"Ana Silva"_s);
        QCOMPARE(m.servidor.cartoes.size(), 2U);
        QCOMPARE(m.Aqui(), m.La());
        QVERIFY(m.Href_Com("Ana Silva") != m.Href_Com("Rui Costa"));
    }

    void de_quem_se_eliminou_enquanto_o_cartao_ia_a_caminho_nao_fica_nada()
    {
        Mesa m;
        const int ID = m.Contacto(u"Ana"_s, u"911"_s);
        m.Contacto(u"Rui"_s, u"922"_s);
        m.Correr();
        m.s.Escrever(u"UPDATE TblSincronizados SET estado=1"_s); // the program ended before it heard of it
        m.Eliminar(ID);
        m.servidor.epoca = "b";
        m.Correr();
        QCOMPARE(m.s.Linhas(u"SELECT IDContacto FROM TblCartoes WHERE IDContacto=%1"_s.arg(ID)),
                 QStringList{});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(m.Aqui(), m.La());
    }
};

MORVEX_TESTE(TestLivroDosDoisLados)
#include "test_LivroDosDoisLados.moc"
