// One group and one book on a server, brought to say the same.
#include "sincronizacao/MarcaDaCorrida.h"
#include "sincronizacao/MesaDaSincronizacao.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
using Mesa = MesaDaSincronizacao;
using Fim = ResultadoDaSincronizacao::Fim;
using Modo = Sincronizacao::Modo;
constexpr auto nenhum = 0;

// A contact and a card that say the same, and know of one another.
struct UmPar : Mesa {
    explicit UmPar(const QByteArray &linhas = "TEL;TYPE=CELL:911\r\nX-JOGO:xadrez\r\n")
    {
        Por_La(u"u1"_s, u"Ana Silva"_s, linhas);
        Correr();
        ID = ID_De(u"Ana Silva"_s);
        href = Href(u"u1"_s);
    }
    int ID = 0;
    QString href;
};

// Many of them.
struct Muitos : Mesa {
    explicit Muitos(int quantos)
    {
        for (int i = 0; i < quantos; ++i)
            Por_La(u"u%1"_s.arg(i), u"Pessoa %1"_s.arg(i));
        Correr();
    }
};

// A book that hands over its cards and never comes to the end of them. It counts how often it is given up.
class LivroSemFim final : public RemoteBook
{
public:
    LivroSemFim(ServidorEmMemoria &servidor, int &desistencias) : livro_(servidor), desistencias_(desistencias) {}
    void changesSince(const QByteArray &testemunho, ChangesAnswer resposta) override
    {
        livro_.changesSince(testemunho, std::move(resposta));
    }
    void fetch(const QStringList &hrefs, CardsPortion porcao, EndAnswer /*fim*/) override
    {
        livro_.fetch(hrefs, std::move(porcao), [](const RemoteError &) {});
    }
    QString hrefFor(const QString &uid) const override { return livro_.hrefFor(uid); }
    void create(const QString &href, const QByteArray &cartao, WrittenAnswer resposta) override
    {
        livro_.create(href, cartao, std::move(resposta));
    }
    void replace(const QString &href, const QByteArray &etag, const QByteArray &cartao,
                 WrittenAnswer resposta) override
    {
        livro_.replace(href, etag, cartao, std::move(resposta));
    }
    void remove(const QString &href, const QByteArray &etag, EndAnswer resposta) override
    {
        livro_.remove(href, etag, std::move(resposta));
    }
    void cancel() override
    {
        ++desistencias_;
        livro_.cancel();
    }

private:
    LivroEmMemoria livro_;
    int &desistencias_;
};

// A picture of one point.
QByteArray Imagem()
{
    return QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQV"
                                  "R42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==");
}

QString Que(Ocorrencia::Que que) { return QString::number(que) + u'|'; }
} // namespace

class TestSincronizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_contacto_novo_vai_para_o_servidor_com_um_uid_que_se_lembra()
    {
        Mesa m;
        const int ID = m.Contacto(u"Ana Silva"_s, u"911"_s);
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Feita);
        QCOMPARE(fim.adicionados_la, 1);
        const QString uid = m.s.Linhas(u"SELECT UID FROM TblCartoes WHERE IDContacto=%1"_s.arg(ID)).value(0);
        const QByteArray cartao = m.Texto_La(Mesa::Href(uid));
        QVERIFY(cartao.contains("VERSION:3.0") && cartao.contains("UID:" + uid.toUtf8()));
        QVERIFY(!cartao.contains("CATEGORIES")); // the group is whose book it is, and no category
        QCOMPARE(m.Aqui(), m.La());
    }

    void um_cartao_novo_vem_para_o_grupo_e_guarda_se_como_e()
    {
        UmPar m;
        QCOMPARE(m.Nomes(u"Nome || Telemovel1"_s), QStringList{u"Ana Silva911"_s});
        QCOMPARE(m.s.Linhas(u"SELECT CAST(cartao AS TEXT) FROM TblCartoes"_s).constFirst().toUtf8(),
                 m.Texto_La(m.href));
    }

    void cada_coluna_de_um_cartao_novo_ou_mudado_vem_para_o_seu_lugar()
    {
        Mesa m;
        QStringList colunas;
        for (const char *coluna : ColunasDoContacto::na_tabela)
            colunas << QString::fromLatin1(coluna);
        for (const QByteArray &x : QByteArrayList{"4", "5"}) {
            m.Por_La(u"u1"_s, u"Ana "_s + QString::fromLatin1(x),
                     "TEL;TYPE=HOME:21" + x + "1\r\nTEL;TYPE=WORK:21" + x + "2\r\nTEL;TYPE=FAX:21" + x +
                         "3\r\nTEL;TYPE=CELL:91" + x + "1\r\nTEL;TYPE=CELL:91" + x + "2\r\nTEL;TYPE=CELL:91" + x +
                         "3\r\nEMAIL:a" + x + "@b.pt\r\nEMAIL:c" + x + "@b.pt\r\nURL:http://d" + x +
                         ".pt\r\nADR:;;Rua " + x + ";;;;\r\nBDAY:197" + x + "-0" + x + "-1" + x +
                         "\r\nNOTE:Nota " + x + "\r\nPHOTO;ENCODING=b:" + (Imagem() + x).toBase64() + "\r\n");
            QCOMPARE(m.Correr().fim, Fim::Feita);
            auto esperado = Pessoa_Do_Cartao(m.Texto_La(Mesa::Href(u"u1"_s)), u"PortuguesPT"_s)->lido.colunas;
            esperado[Coluna::IDGrupo] = QString::number(m.grupo);
            const QStringList valores(esperado.valores.begin(), esperado.valores.end());
            QVERIFY(!valores.contains(QString()));
            QCOMPARE(QSet<QString>(valores.begin(), valores.end()).size(), valores.size()); // no two are the same
            QCOMPARE(m.s.Linhas(u"SELECT %1 FROM TblLista"_s.arg(colunas.join(u", "_s))),
                     QStringList{valores.join(u'|')});
        }
    }

    // What has no contact bears no number, and the first number is one like all others.
    void o_contacto_numero_1_e_como_os_outros()
    {
        Mesa m;
        m.s.Escrever(u"UPDATE TblLista SET ID=1 WHERE ID=%1"_s.arg(m.Contacto(u"Rui Costa"_s, u"961111111"_s)));
        m.Por_La(u"u1"_s, u"Ana Silva"_s, "TEL;TYPE=CELL:911\r\n");
        m.Correr();
        QCOMPARE(m.Nomes(), (QStringList{u"Ana Silva"_s, u"Rui Costa"_s}));
        QCOMPARE(m.servidor.cartoes.size(), 2U);
        const QString dele = m.Href_Com("Rui Costa");
        m.Mudar_La(dele, Coluna::Fax, u"9"_s);
        QCOMPARE(m.Correr().alterados, 1);
        QCOMPARE(m.Valor(1, u"Fax"_s), u"9"_s);
        m.Mudar(1, u"Fax"_s, u"8"_s);
        QCOMPARE(m.Correr().alterados_la, 1);
        QCOMPARE(m.Ocorrencias(), QStringList{});
        m.Eliminar(1);
        m.Mudar_La(dele, Coluna::Fax, u"7"_s);
        m.Correr();
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::EliminadoAqui) + u"Rui Costa|||"_s});
        QCOMPARE(m.Aqui(), m.La());
    }

    void o_contacto_numero_1_pode_vir_do_servidor()
    {
        Mesa m;
        m.s.Escrever(u"UPDATE sqlite_sequence SET seq=0 WHERE name='TblLista'"_s);
        m.Por_La(u"u1"_s, u"Ana Silva"_s);
        m.Correr();
        QCOMPARE(m.ID_De(u"Ana Silva"_s), 1);
        QCOMPARE(m.servidor.pedidos, (QStringList{u"changes"_s, u"fetch 1"_s}));
        m.Por_La(u"u2"_s, u"Rui Costa"_s);
        QCOMPARE(m.Correr().adicionados, 1);
        QCOMPARE(m.Valor(1, u"Nome"_s), u"Ana Silva"_s);
        m.Mudar_La(Mesa::Href(u"u1"_s), Coluna::Fax, u"9"_s);
        m.servidor.nao_entrega = [](const QString &) {
            return RemoteError{RemoteError::Kind::NotFound, 404, {}};
        };
        m.Correr();
        QCOMPARE(m.s.Linhas(u"SELECT estado FROM TblSincronizados WHERE IDContacto=1"_s),
                 QStringList{QString::number(Par::PorVer)});
        m.servidor.nao_entrega = [](const QString &) { return RemoteError(); };
        m.servidor.Tirar(Mesa::Href(u"u1"_s));
        QCOMPARE(m.Correr().eliminados, 1);
    }

    void de_dois_cartoes_iguais_so_um_e_o_do_contacto()
    {
        Mesa m;
        m.Contacto(u"Ana Silva"_s, u"912345678"_s);
        for (const QString &uid : {u"x"_s, u"y"_s})
            m.Por_La(uid, u"Ana Silva"_s, "TEL;TYPE=CELL:912345678\r\n");
        QCOMPARE(m.Correr().adicionados, 1);
        QCOMPARE(m.Nomes(), (QStringList{u"Ana Silva"_s, u"Ana Silva"_s}));
        QCOMPARE(m.servidor.cartoes.size(), 2U);
    }

    void contactos_de_outros_grupos_ficam_em_casa()
    {
        Mesa m;
        m.Contacto(u"Privada"_s, {}, m.s.Novo_Grupo(u"Outros amigos"_s));
        m.Correr();
        QVERIFY(m.servidor.cartoes.empty());
    }

    void sem_mudancas_ha_um_so_pedido_e_nada_se_escreve()
    {
        UmPar m;
        m.Contacto(u"Rui"_s);
        m.Correr();
        m.Correr();
        const auto antes = m.s.Linhas(u"SELECT * FROM TblSincronizados"_s);
        const auto fim = m.Correr();
        QCOMPARE(m.servidor.pedidos, QStringList{u"changes"_s});
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblSincronizados"_s), antes);
    }

    void uma_mudanca_daqui_so_toca_no_que_mudou()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        QCOMPARE(m.Correr().alterados_la, 1);
        const QByteArray cartao = m.Texto_La(m.href);
        QVERIFY2(cartao.contains("922") && !cartao.contains("911"), cartao);
        QVERIFY(cartao.contains("X-JOGO:xadrez") && cartao.contains("UID:u1"));
    }

    void uma_mudanca_de_la_vem_e_o_cartao_novo_guarda_se()
    {
        UmPar m;
        m.Mudar_La(m.href, Coluna::Morada, u"Rua Nova"_s);
        QCOMPARE(m.Correr().alterados, 1);
        QCOMPARE(m.Valor(m.ID, u"Morada"_s), u"Rua Nova"_s);
        QVERIFY(m.s.Linhas(u"SELECT CAST(cartao AS TEXT) FROM TblCartoes"_s)
                    .constFirst()
                    .contains(u"Rua Nova"_s));
    }

    void colunas_diferentes_juntam_se_dos_dois_lados_numa_corrida()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.Mudar_La(m.href, Coluna::Morada, u"Rua Nova"_s);
        const auto fim = m.Correr();
        QCOMPARE(fim.conflitos, nenhum);
        QCOMPARE(m.Valor(m.ID, u"Telemovel1 || Morada"_s), u"922Rua Nova"_s);
        QCOMPARE(m.Aqui(), m.La());
    }

    void na_mesma_coluna_fica_o_do_servidor_o_nosso_le_se_em_obs_e_di_lo()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.Mudar_La(m.href, Coluna::Telemovel1, u"933"_s);
        const auto fim = m.Correr();
        QCOMPARE(fim.conflitos, 1);
        QCOMPARE(m.Valor(m.ID, u"Telemovel1"_s), u"933"_s);
        QVERIFY(m.Valor(m.ID, u"Obs"_s).endsWith(u"Telemóvel: 922"_s));
        QVERIFY(m.Texto_La(m.href).contains("922")); // in the note: the telephone shows it too
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::Conflito) + u"Ana Silva|Telemovel1|922|933"_s});
        QCOMPARE(m.Aqui(), m.La());
        const auto depois = m.Correr();
        QVERIFY(!depois.Mudou_Aqui() && !depois.Mudou_La());
    }

    void eliminar_aqui_elimina_la()
    {
        UmPar m;
        m.Eliminar(m.ID);
        QCOMPARE(m.Correr().eliminados_la, 1);
        QVERIFY(m.servidor.cartoes.empty());
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblSincronizados"_s), QStringList{});
    }

    void eliminar_la_elimina_aqui_com_o_cartao_guardado()
    {
        UmPar m;
        m.servidor.Tirar(m.href);
        QCOMPARE(m.Correr().eliminados, 1);
        QCOMPARE(m.Nomes(), QStringList{});
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblCartoes"_s), QStringList{});
    }

    void eliminado_dos_dois_lados_esquece_se()
    {
        UmPar m;
        m.Eliminar(m.ID);
        m.servidor.Tirar(m.href);
        const auto fim = m.Correr();
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblSincronizados"_s), QStringList{});
    }

    void mudado_aqui_e_eliminado_la_volta_para_la_e_di_lo()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.servidor.Tirar(m.href);
        m.Correr();
        QCOMPARE(m.Nomes(u"Telemovel1"_s), QStringList{u"922"_s});
        QVERIFY(m.Texto_La(m.Href_Com("922")).contains("X-JOGO:xadrez"));
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::EliminadoLa) + u"Ana Silva|||"_s});
        QCOMPARE(m.Aqui(), m.La());
    }

    void mudado_la_e_eliminado_aqui_volta_para_ca_e_di_lo()
    {
        UmPar m;
        m.Eliminar(m.ID);
        m.Mudar_La(m.href, Coluna::Telemovel1, u"933"_s);
        m.Correr();
        QCOMPARE(m.Nomes(u"Telemovel1"_s), QStringList{u"933"_s});
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::EliminadoAqui) + u"Ana Silva|||"_s});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
    }

    void o_que_mudou_la_a_ultima_hora_junta_se_e_vai_outra_vez()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        bool uma_vez = true;
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"replace"_s) && std::exchange(uma_vez, false))
                m.Mudar_La(m.href, Coluna::Morada, u"Rua Nova"_s);
            return RemoteError();
        };
        m.Correr();
        QCOMPARE(m.servidor.pedidos.filter(u"replace"_s).size(), 2);
        QCOMPARE(m.Valor(m.ID, u"Telemovel1 || Morada"_s), u"922Rua Nova"_s);
        QCOMPARE(m.Aqui(), m.La());
    }

    void quem_nunca_esta_quieto_fica_para_a_proxima_corrida()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        int vezes = 0;
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"replace"_s)) m.Mudar_La(m.href, Coluna::Morada, u"Rua %1"_s.arg(++vezes));
            return RemoteError();
        };
        QCOMPARE(m.Correr().fim, Fim::Feita);
        QCOMPARE(vezes, 3);
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.Correr();
        QCOMPARE(m.Valor(m.ID, u"Telemovel1 || Morada"_s), u"922Rua 3"_s);
        QCOMPARE(m.Aqui(), m.La());
    }

    void eliminado_aqui_e_mudado_la_a_ultima_hora_volta()
    {
        UmPar m;
        m.Eliminar(m.ID);
        bool uma_vez = true;
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"remove"_s) && std::exchange(uma_vez, false))
                m.Mudar_La(m.href, Coluna::Morada, u"Rua Nova"_s);
            return RemoteError();
        };
        m.Correr();
        QCOMPARE(m.Nomes(u"Morada"_s), QStringList{u"Rua Nova"_s});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
    }

    void mudado_aqui_e_eliminado_la_a_ultima_hora_volta_para_la()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        bool uma_vez = true;
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"replace"_s) && std::exchange(uma_vez, false)) m.servidor.Tirar(m.href);
            return RemoteError();
        };
        m.Correr();
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(m.Aqui(), m.La());
        QCOMPARE(m.Ocorrencias(), QStringList{u"2|Ana Silva|||"_s}); // told once
    }

    void eliminado_aqui_e_la_a_ultima_hora_nao_e_coisa_que_se_diga()
    {
        UmPar m;
        m.Eliminar(m.ID);
        m.servidor.falha = [&](const QString &pedido) {
            RemoteError erro;
            if (pedido.startsWith(u"remove"_s)) {
                m.servidor.Tirar(m.href);
                erro.kind = RemoteError::Kind::NotFound;
            }
            return erro;
        };
        QCOMPARE(m.Correr().fim, Fim::Feita);
        QCOMPARE(m.Ocorrencias(), QStringList{});
        QVERIFY(m.Memoria().Pares().empty());
    }

    void um_cartao_que_outro_pos_com_o_mesmo_nome_junta_se()
    {
        Mesa m;
        const int ID = m.Contacto(u"Ana Silva"_s, u"912345678"_s);
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"create"_s) && m.servidor.cartoes.empty())
                m.servidor.Por(
                    pedido.mid(7),
                    Mesa::Cartao(u"x"_s, u"Ana Silva"_s, "TEL;TYPE=CELL:912345678\r\nTEL;TYPE=HOME:21\r\n"));
            return RemoteError();
        };
        m.Correr();
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(m.Valor(ID, u"Telemovel1 || '/' || Telefone1"_s), u"912345678/21"_s);
        QCOMPARE(m.Aqui(), m.La());
    }

    void demasiadas_eliminacoes_la_param_e_perguntam()
    {
        Muitos m(20);
        for (int i = 0; i < 11; ++i)
            m.servidor.Tirar(Mesa::Href(u"u%1"_s.arg(i)));
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Perguntar);
        QCOMPARE(fim.pergunta_la, false);
        QCOMPARE(fim.pergunta_quantos, 11);
        QCOMPARE(fim.pergunta_de_quantos, 20);
        QCOMPARE(m.Nomes().size(), 20);
        QCOMPARE(m.Correr().fim, Fim::Perguntar); // as often as it takes
        QCOMPARE(m.Correr(Modo::ApagarMuitos).eliminados, 11);
        QCOMPARE(m.Nomes().size(), 9);
    }

    void demasiadas_eliminacoes_aqui_param_e_perguntam()
    {
        Muitos m(20);
        for (int i = 0; i < 11; ++i)
            m.Eliminar(m.ID_De(u"Pessoa %1"_s.arg(i)));
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Perguntar);
        QCOMPARE(fim.pergunta_la, true);
        QCOMPARE(fim.pergunta_quantos, 11);
        QCOMPARE(fim.pergunta_de_quantos, 20);
        QCOMPARE(m.servidor.cartoes.size(), 20U);
        QCOMPARE(m.Correr(Modo::ApagarMuitos).eliminados_la, 11);
        QCOMPARE(m.servidor.cartoes.size(), 9U);
    }

    void quem_diz_que_nao_tem_tudo_de_volta()
    {
        Muitos m(20);
        for (int i = 0; i < 11; ++i)
            m.servidor.Tirar(Mesa::Href(u"u%1"_s.arg(i)));
        m.Eliminar(m.ID_De(u"Pessoa 15"_s));
        m.Correr(Modo::SemApagar);
        QCOMPARE(m.Nomes().size(), 20);
        QCOMPARE(m.servidor.cartoes.size(), 20U);
        QCOMPARE(m.Aqui(), m.La());
        const auto depois = m.Correr();
        QVERIFY(!depois.Mudou_Aqui() && !depois.Mudou_La());
    }

    void cartoes_que_ainda_nao_vieram_nao_contam_para_a_parte_que_se_perde()
    {
        Muitos m(20);
        const QStringList por_vir{Mesa::Href(u"v1"_s), Mesa::Href(u"v2"_s)};
        for (const QString &href : por_vir)
            m.servidor.Por(href, Mesa::Cartao(href, u"Por Vir"_s));
        m.servidor.nao_entrega = [=](const QString &href) {
            return por_vir.contains(href) ? RemoteError{RemoteError::Kind::Server, 500, {}} : RemoteError();
        };
        QCOMPARE(m.Correr().recusados, 2);
        QCOMPARE(m.Memoria().Pares().size(), 22U); // two of them without a contact
        for (int i = 0; i < 11; ++i)
            m.servidor.Tirar(Mesa::Href(u"u%1"_s.arg(i)));
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Perguntar);
        QCOMPARE(fim.pergunta_de_quantos, 20);
        QCOMPARE(m.Nomes().size(), 20);
    }

    void dez_eliminacoes_nao_perguntam_nada()
    {
        Muitos m(12);
        for (int i = 0; i < 10; ++i)
            m.servidor.Tirar(Mesa::Href(u"u%1"_s.arg(i)));
        QCOMPARE(m.Correr().eliminados, 10);
    }

    void sem_memoria_emparelha_pelo_uid_e_nada_se_transfere()
    {
        Muitos m(20);
        m.s.Escrever(u"DELETE FROM TblSincronizados"_s);
        m.s.Escrever(u"UPDATE TblSincronizacao SET Testemunho=''"_s);
        const auto fim = m.Correr();
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        QCOMPARE(m.Nomes().size(), 20);
        QCOMPARE(m.servidor.cartoes.size(), 20U);
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblSincronizados"_s), QStringList{u"20"_s});
    }

    void sem_uid_emparelha_pela_regra_dos_duplicados()
    {
        Mesa m;
        const int ana = m.Contacto(u"Silva, Ana"_s, u"912 345 678"_s);
        m.Contacto(u"Rui Costa"_s, u"961111111"_s);
        m.Por_La(u"x"_s, u"Ana da Silva"_s, "TEL;TYPE=CELL:+351912345678\r\nEMAIL:ana@x.example\r\n");
        m.Por_La(u"y"_s, u"Rui Costa"_s, "TEL;TYPE=CELL:962222222\r\n"); // a namesake: nobody can tell
        m.Correr();
        QCOMPARE(m.Nomes(), (QStringList{u"Ana da Silva"_s, u"Rui Costa"_s, u"Rui Costa"_s}));
        QCOMPARE(m.Valor(ana, u"Email1"_s), u"ana@x.example"_s);
        QVERIFY(m.Valor(ana, u"Obs"_s).contains(u"Silva, Ana"_s));
        QCOMPARE(m.servidor.cartoes.size(), 3U);
        QCOMPARE(m.Aqui(), m.La());
    }

    void uma_base_antiga_que_foi_reposta_nao_elimina_nada()
    {
        Muitos m(4);
        QFile base(m.s.Base());
        m.s.geral.de.Fechar_Ligacao();
        QVERIFY(base.open(QIODevice::ReadOnly));
        const QByteArray copia = base.readAll();
        base.close();
        m.s.geral.de.Reabrir_Ligacao();
        m.Contacto(u"Depois"_s); // goes to the server, and is not in the copy
        m.Eliminar(m.ID_De(u"Pessoa 1"_s));
        m.servidor.Tirar(Mesa::Href(u"u2"_s));
        m.Mudar_La(Mesa::Href(u"u3"_s), Coluna::Fax, u"9"_s);
        m.Correr();
        QCOMPARE(m.Nomes(), (QStringList{u"Depois"_s, u"Pessoa 0"_s, u"Pessoa 3"_s}));

        m.s.geral.de.Fechar_Ligacao();
        QVERIFY(base.open(QIODevice::WriteOnly) && base.write(copia) == copia.size());
        base.close();
        m.s.geral.de.Reabrir_Ligacao();
        const auto fim = m.Correr();
        QVERIFY(fim.com_cautela);
        QCOMPARE(fim.eliminados + fim.eliminados_la, nenhum);
        QCOMPARE(m.Nomes(u"Nome || Fax"_s),
                 (QStringList{u"Depois"_s, u"Pessoa 0"_s, u"Pessoa 1"_s, u"Pessoa 2"_s, u"Pessoa 39"_s}));
        QCOMPARE(m.Aqui(), m.La());
        QVERIFY(!m.Correr().com_cautela);
        m.Eliminar(m.ID_De(u"Pessoa 0"_s));
        QCOMPARE(m.Correr().eliminados_la, 1); // from now on as always
    }

    void um_contador_a_frente_do_ficheiro_de_opcoes_nao_e_uma_base_antiga()
    {
        UmPar m;
        MarcaDaCorrida(m.s.geral).Escrever(0);
        m.Eliminar(m.ID);
        QCOMPARE(m.Correr().eliminados_la, 1);
    }

    void outro_livro_ou_outro_grupo_e_um_comeco_novo()
    {
        UmPar m;
        auto conta = *m.Memoria().Conta();
        conta.IDGrupo = m.s.Novo_Grupo(u"Trabalho"_s);
        m.Memoria().Guardar(conta);
        const auto fim = m.Correr();
        QCOMPARE(fim.eliminados_la, nenhum);
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista WHERE Grupo=%1"_s.arg(conta.IDGrupo)),
                 QStringList{u"1"_s});
    }

    void sem_o_direito_a_mudanca_fica_para_quando_o_houver_data()
    {
        QTest::addColumn<QString>("direito");
        QTest::newRow("Adicionar") << u"Adicionar"_s;
        QTest::newRow("Editar") << u"Editar"_s;
        QTest::newRow("Eliminar") << u"Eliminar"_s;
    }
    void sem_o_direito_a_mudanca_fica_para_quando_o_houver()
    {
        QFETCH(QString, direito);
        UmPar m;
        bool &permitido = direito == u"Adicionar"_s ? m.s.geral.SessaoActual.Adicionar
                          : direito == u"Editar"_s  ? m.s.geral.SessaoActual.Editar
                                                    : m.s.geral.SessaoActual.Eliminar;
        permitido = false;
        if (direito == u"Adicionar"_s) m.Por_La(u"u2"_s, u"Rui"_s);
        if (direito == u"Editar"_s) m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        if (direito == u"Eliminar"_s) m.servidor.Tirar(m.href);
        const QStringList antes = m.Aqui();
        for (int i = 0; i < 2; ++i) {
            const auto fim = m.Correr();
            QCOMPARE(fim.retidos, 1);
            QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
            QCOMPARE(m.Aqui(), antes);
        }
        QCOMPARE(m.Ocorrencias().size(), 1); // told once
        QCOMPARE(m.Memoria().Ocorrencias().front().IDContacto, direito == u"Adicionar"_s ? 0 : m.ID);
        permitido = true;
        QVERIFY(m.Correr().Mudou_Aqui());
        QCOMPARE(m.Aqui(), m.La());
    }

    void o_que_se_nao_pode_editar_nao_vai_para_la_meio_junto()
    {
        UmPar m;
        m.s.geral.SessaoActual.Editar = false;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.Correr();
        QCOMPARE(m.Valor_La(m.href, Coluna::Telemovel1), u"911"_s);
        m.s.geral.SessaoActual.Editar = true;
        m.Correr();
        QCOMPARE(m.Valor_La(m.href, Coluna::Telemovel1), u"922"_s);
        QCOMPARE(m.Aqui(), m.La());
    }

    void o_que_se_emparelhou_e_nao_se_pode_editar_nao_vai_como_outro()
    {
        Mesa m;
        m.s.geral.SessaoActual.Editar = false;
        const int ID = m.Contacto(u"Ana"_s, u"912345678"_s);
        m.Por_La(u"u1"_s, u"Ana"_s, "TEL;TYPE=CELL:912345678\r\nEMAIL:ana@x.example\r\n");
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(m.Correr().retidos, 1);
            QCOMPARE(m.servidor.cartoes.size(), 1U);
            QCOMPARE(m.Valor(ID, u"Email1"_s), QString());
        }
        m.s.geral.SessaoActual.Editar = true;
        m.Correr();
        QCOMPARE(m.Nomes(u"Nome || Email1"_s), QStringList{u"Anaana@x.example"_s});
        QCOMPARE(m.Aqui(), m.La());
    }

    void os_numeros_dos_contactos_acabam_e_di_lo()
    {
        Mesa m;
        m.s.Escrever(u"UPDATE sqlite_sequence SET seq=32766 WHERE name='TblLista'"_s);
        m.Por_La(u"u1"_s, u"Ana"_s);
        m.Por_La(u"u2"_s, u"Rui"_s);
        const auto fim = m.Correr();
        QCOMPARE(fim.adicionados, 1);
        QCOMPARE(fim.recusados, 1);
        QCOMPARE(m.s.Linhas(u"SELECT max(ID) FROM TblLista"_s), QStringList{u"32767"_s});
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::NaoCabe) + u"Rui|||"_s});
        QCOMPARE(m.Memoria().Ocorrencias().front().IDContacto, 0);
        QCOMPARE(m.s.Linhas(u"SELECT IDContacto FROM TblSincronizados ORDER BY IDContacto"_s),
                 (QStringList{u"0"_s, u"32767"_s}));
        m.Correr();
        QCOMPARE(m.servidor.cartoes.size(), 2U);
        QCOMPARE(m.Ocorrencias().size(), 1);
    }

    void um_grupo_de_pessoas_nao_e_contacto_e_o_ilegivel_di_se_uma_vez()
    {
        Mesa m;
        m.Por_La(u"g"_s, u"Família"_s,
                 "X-ADDRESSBOOKSERVER-KIND:group\r\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\r\n");
        m.servidor.Por(u"/livro/lixo.vcf"_s, "isto nao e um cartao");
        m.Correr();
        m.servidor.epoca = "b"; // everything is listed anew
        m.Correr();
        QVERIFY(m.servidor.pedidos.filter(u"fetch"_s).isEmpty());
        QCOMPARE(m.Nomes(), QStringList{});
        QCOMPARE(m.servidor.cartoes.size(), 2U);
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::Ilegivel) + u"/livro/lixo.vcf|||"_s});
        QCOMPARE(m.Memoria().Ocorrencias().front().IDContacto, 0);
        QCOMPARE(m.Memoria().Pares().size(), 2U);
        for (const Par &par : m.Memoria().Pares())
            QCOMPARE(par.IDContacto, 0);
    }

    void um_testemunho_esquecido_lista_tudo_e_nao_pede_nada()
    {
        Muitos m(5);
        m.servidor.epoca = "b";
        m.servidor.Tirar(Mesa::Href(u"u1"_s));
        const auto fim = m.Correr();
        QCOMPARE(m.servidor.pedidos, QStringList{u"changes"_s});
        QCOMPARE(fim.eliminados, 1);
    }

    void um_servidor_sem_testemunhos_ou_sem_marcas_tambem_serve_data()
    {
        QTest::addColumn<bool>("testemunhos");
        QTest::addColumn<bool>("marcas");
        QTest::newRow("no tokens") << false << true;
        QTest::newRow("no marks") << true << false;
        QTest::newRow("neither") << false << false;
    }
    void um_servidor_sem_testemunhos_ou_sem_marcas_tambem_serve()
    {
        QFETCH(bool, testemunhos);
        QFETCH(bool, marcas);
        UmPar m;
        m.servidor.da_testemunhos = testemunhos;
        m.servidor.da_marcas = marcas;
        m.Contacto(u"Rui"_s, u"96"_s);
        m.Correr();
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.Correr();
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.Correr();
        m.Eliminar(m.ID_De(u"Rui"_s));
        m.Correr();
        QCOMPARE(m.Aqui(), m.La());
        QCOMPARE(m.Nomes(u"Telemovel1 || Fax"_s), QStringList{u"9229"_s});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
    }

    void um_servidor_que_reescreve_os_cartoes_nao_muda_nada()
    {
        Mesa m;
        m.servidor.devolve_o_texto = true;
        m.servidor.escreve = [](QByteArray texto) {
            return texto.replace("TYPE=CELL", "type=cell")
                .replace("END:VCARD", "REV:20270101T000000Z\r\nEND:VCARD");
        };
        m.Contacto(u"Ana"_s, u"911"_s);
        m.Correr();
        for (auto &[href, cartao] : std::map(m.servidor.cartoes))
            m.servidor.Por(href, QByteArray(cartao.texto).replace("2027", "2028"));
        const auto fim = m.Correr();
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        QCOMPARE(m.Correr().fim, Fim::Feita);
        QCOMPARE(m.servidor.pedidos, QStringList{u"changes"_s});
    }

    // The program ended before the answer came.
    void um_cartao_que_la_chegou_sem_resposta_guarda_se_como_esta()
    {
        Mesa m;
        const int ID = m.Contacto(u"Ana"_s, u"911"_s);
        m.Correr();
        const QString href = m.Href_Com("Ana");
        m.s.Escrever(u"UPDATE TblSincronizados SET estado=%1"_s.arg(Par::AEnviar));
        m.s.Escrever(u"UPDATE TblSincronizacao SET Testemunho=''"_s);
        const QString uid = m.s.Linhas(u"SELECT UID FROM TblCartoes"_s).constFirst();
        CartoesGuardados(m.s.geral.de).Guardar({QString::number(ID), uid, Mesa::Cartao(uid, u"De outro livro"_s)});
        const auto fim = m.Correr();
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        QCOMPARE(m.s.Linhas(u"SELECT IDContacto, CAST(cartao AS TEXT) FROM TblCartoes"_s),
                 QStringList{QString::number(ID) + u'|' + QString::fromUtf8(m.Texto_La(href))});
        QCOMPARE(m.Memoria().Pares().front().estado, Par::Acordado);
    }

    void um_cartao_reescrito_de_quem_se_eliminou_aqui_elimina_se_la()
    {
        UmPar m;
        m.Eliminar(m.ID);
        m.servidor.Por(m.href, m.Texto_La(m.href).replace("END:VCARD", "REV:1\r\nEND:VCARD"));
        QCOMPARE(m.Correr().eliminados_la, 1);
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblCartoes"_s), QStringList{});
        QVERIFY(m.servidor.cartoes.empty());
    }

    void o_servidor_que_acrescenta_ao_que_recebe_e_ouvido_logo()
    {
        Mesa m;
        m.servidor.devolve_o_texto = true;
        m.servidor.escreve = [](QByteArray texto) {
            return texto.replace("END:VCARD", "TEL;TYPE=HOME:21\r\nEND:VCARD");
        };
        const int ID = m.Contacto(u"Ana"_s, u"911"_s);
        m.Correr();
        QCOMPARE(m.Valor(ID, u"Telefone1"_s), u"21"_s);
        QCOMPARE(m.Aqui(), m.La());
    }

    void enquanto_um_formulario_esta_aberto_nada_muda()
    {
        UmPar m;
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        bool acabou = false;
        auto corrida = m.Nova();
        connect(corrida.get(), &Sincronizacao::Terminada, [&] { acabou = true; });
        corrida->Comecar();
        m.servidor.falha = [&](const QString &) {
            m.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
            return RemoteError();
        };
        QTest::qWait(100);
        QVERIFY(!acabou);
        QCOMPARE(m.Valor(m.ID, u"Fax"_s), u""_s);
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        QTRY_VERIFY(acabou);
        QCOMPARE(m.Valor(m.ID, u"Fax"_s), u"9"_s);
    }

    void o_que_se_edita_enquanto_o_cartao_vai_a_caminho_vai_na_proxima()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"replace"_s)) m.Mudar(m.ID, u"Telemovel1"_s, u"933"_s);
            return RemoteError();
        };
        m.Correr();
        QCOMPARE(m.Valor_La(m.href, Coluna::Telemovel1), u"922"_s);
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.Correr();
        QCOMPARE(m.Valor_La(m.href, Coluna::Telemovel1), u"933"_s);
    }

    void uma_rede_que_cai_a_meio_di_se_e_a_proxima_corrida_acaba()
    {
        Mesa m;
        for (int i = 0; i < 40; ++i)
            m.Contacto(u"Pessoa %1"_s.arg(i), u"91%1"_s.arg(i));
        int quantos = 0;
        m.servidor.falha = [&](const QString &) {
            return ++quantos > 20 ? RemoteError{RemoteError::Kind::Interrupted, 0, {}} : RemoteError();
        };
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Erro);
        QCOMPARE(fim.erro.kind, RemoteError::Kind::Interrupted);
        QVERIFY(m.servidor.cartoes.size() >= 19 && m.servidor.cartoes.size() < 40);
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.Correr();
        QCOMPARE(m.servidor.cartoes.size(), 40U);
        QCOMPARE(m.Aqui(), m.La());
    }

    void uma_rede_que_cai_logo_deixa_tudo_como_estava_data()
    {
        QTest::addColumn<QString>("pedido");
        QTest::newRow("listing") << u"changes"_s;
        QTest::newRow("cards") << u"fetch"_s;
    }
    void uma_rede_que_cai_logo_deixa_tudo_como_estava()
    {
        QFETCH(QString, pedido);
        UmPar m;
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        const QStringList antes = m.Aqui();
        m.servidor.falha = [&](const QString &qual) {
            return qual.startsWith(pedido) ? RemoteError{RemoteError::Kind::TimedOut, 0, {}} : RemoteError();
        };
        QCOMPARE(m.Correr().erro.kind, RemoteError::Kind::TimedOut);
        QCOMPARE(m.Aqui(), antes);
        QCOMPARE(ResultadoDaSincronizacao::Do_Texto(m.Memoria().Estado().Resultado).erro.kind,
                 RemoteError::Kind::TimedOut);
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.Correr();
        QCOMPARE(m.Aqui(), m.La());
        QCOMPARE(m.Valor(m.ID, u"Telemovel1 || Fax"_s), u"9229"_s);
    }

    void um_cartao_recusado_nao_para_os_outros_e_di_se_uma_vez()
    {
        Mesa m;
        for (int i = 0; i < 6; ++i)
            m.Contacto(u"Pessoa %1"_s.arg(i), u"91%1"_s.arg(i));
        m.Correr();
        const QString mau = m.Href_Com("Pessoa 3");
        for (int i = 0; i < 6; ++i)
            m.Mudar(m.ID_De(u"Pessoa %1"_s.arg(i)), u"Fax"_s, u"9"_s);
        m.servidor.falha = [&](const QString &pedido) {
            return pedido == u"replace "_s + mau ? RemoteError{RemoteError::Kind::NotAccepted, 400, {}}
                                                 : RemoteError();
        };
        for (int i = 0; i < 2; ++i) {
            const auto fim = m.Correr();
            QCOMPARE(fim.fim, Fim::Feita);
            QCOMPARE(fim.recusados, 1);
        }
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::Recusado) + u"Pessoa 3|||"_s});
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.Correr();
        QCOMPARE(m.Aqui(), m.La());
    }

    void um_servidor_que_nada_aceita_nao_e_pedido_mil_vezes()
    {
        Mesa m;
        for (int i = 0; i < 60; ++i)
            m.Contacto(u"Pessoa %1"_s.arg(i));
        m.servidor.falha = [&](const QString &pedido) {
            return pedido.startsWith(u"create"_s) ? RemoteError{RemoteError::Kind::NoRoom, 507, {}}
                                                  : RemoteError();
        };
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Erro);
        QCOMPARE(fim.erro.kind, RemoteError::Kind::NoRoom);
        QVERIFY(m.servidor.pedidos.size() < 30);
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.Correr();
        QCOMPARE(m.servidor.cartoes.size(), 60U);
    }

    void um_cartao_que_o_servidor_nao_entrega_pede_se_outra_vez()
    {
        Mesa m;
        m.Por_La(u"u1"_s, u"Ana"_s);
        const auto texto = m.servidor.cartoes.at(Mesa::Href(u"u1"_s));
        m.servidor.falha = [&](const QString &pedido) { // deleted between list and card
            if (pedido.startsWith(u"fetch"_s)) m.servidor.Tirar(Mesa::Href(u"u1"_s));
            return RemoteError();
        };
        QCOMPARE(m.Correr().fim, Fim::Feita);
        QCOMPARE(m.Nomes(), QStringList{});
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        QCOMPARE(m.Correr().fim, Fim::Feita);
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblSincronizados"_s), QStringList{});
    }

    void um_cartao_que_o_servidor_retem_diz_se_uma_vez_e_pede_se_ate_vir()
    {
        UmPar m;
        m.Por_La(u"u2"_s, u"Rui"_s);
        m.Por_La(u"u3"_s, u"Zita"_s);
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.servidor.nao_entrega = [&](const QString &href) {
            return href.endsWith(u"u3.vcf"_s) ? RemoteError()
                                              : RemoteError{RemoteError::Kind::Forbidden, 403, {}};
        };
        for (int vez = 0; vez < 2; ++vez) {
            const auto fim = m.Correr();
            QCOMPARE(fim.fim, Fim::Feita);
            QCOMPARE(fim.recusados, 2);
            QCOMPARE(m.servidor.pedidos.filter(u"fetch"_s),
                     QStringList{vez == 0 ? u"fetch 3"_s : u"fetch 2"_s});
            QCOMPARE(m.Nomes(u"Nome || Fax"_s), (QStringList{u"Ana Silva"_s, u"Zita"_s}));
        }
        QStringList ditas = m.Ocorrencias();
        ditas.sort();
        QCOMPARE(ditas, (QStringList{Que(Ocorrencia::NaoRecebido) + Mesa::Href(u"u1"_s) + u"|||"_s,
                                     Que(Ocorrencia::NaoRecebido) + Mesa::Href(u"u2"_s) + u"|||"_s}));
        m.servidor.nao_entrega = [](const QString &) { return RemoteError(); };
        m.Correr();
        QCOMPARE(m.Nomes(u"Nome || Fax"_s), (QStringList{u"Ana Silva9"_s, u"Rui"_s, u"Zita"_s}));
        QCOMPARE(m.Aqui(), m.La());
        QCOMPARE(m.Ocorrencias().size(), 2); // nobody had been deleted
    }

    // One that is gone when it is asked for leaves no trace, but where a contact goes with it that one is
    // looked at again.
    void um_cartao_que_ja_la_nao_esta_quando_se_pede_nao_se_diz()
    {
        UmPar m;
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.servidor.nao_entrega = [](const QString &) {
            return RemoteError{RemoteError::Kind::NotFound, 404, {}};
        };
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Feita);
        QCOMPARE(fim.recusados, nenhum);
        QCOMPARE(m.Ocorrencias(), QStringList{});
        QCOMPARE(m.Memoria().Pares().front().estado, Par::PorVer);
        QCOMPARE(m.Nomes(), QStringList{u"Ana Silva"_s});
    }

    // One card may be bad, five one after the other are a server that takes nothing.
    void a_quinta_recusa_seguida_acaba_a_corrida_data()
    {
        QTest::addColumn<QString>("respostas"); // of each card in turn: taken or refused
        QTest::addColumn<bool>("acaba");
        QTest::newRow("four") << u"rrrr"_s << false;
        QTest::newRow("five") << u"rrrrr"_s << true;
        QTest::newRow("four, one taken, four") << u"rrrrtrrrr"_s << false;
        QTest::newRow("one taken, five") << u"trrrrr"_s << true;
    }
    void a_quinta_recusa_seguida_acaba_a_corrida()
    {
        QFETCH(QString, respostas);
        QFETCH(bool, acaba);
        Mesa m;
        for (int i = 0; i < respostas.size(); ++i)
            m.Contacto(u"Pessoa %1"_s.arg(i));
        qsizetype qual = 0;
        m.servidor.falha = [&](const QString &pedido) {
            if (!pedido.startsWith(u"create"_s) || respostas.at(qual++) == u't') return RemoteError();
            return RemoteError{RemoteError::Kind::NotAccepted, 400, {}};
        };
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, acaba ? Fim::Erro : Fim::Feita);
        QCOMPARE(fim.erro.kind, acaba ? RemoteError::Kind::NotAccepted : RemoteError::Kind::None);
        QCOMPARE(fim.recusados, static_cast<int>(respostas.count(u'r')));
        QCOMPARE(fim.adicionados_la, static_cast<int>(respostas.count(u't')));
        QCOMPARE(static_cast<qsizetype>(m.Ocorrencias().size()), respostas.count(u'r'));
    }

    void a_hora_de_uma_corrida_e_do_que_nela_aconteceu_e_a_do_relogio()
    {
        UmPar m;
        m.s.relogio.Acertar(QDateTime({2027, 3, 4}, {10, 11, 12}));
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.Mudar_La(m.href, Coluna::Telemovel1, u"933"_s);
        m.Correr();
        QCOMPARE(m.Memoria().Estado().UltimaVez, u"2027-03-04T10:11:12"_s);
        QCOMPARE(m.Memoria().Ocorrencias().front().Quando, u"2027-03-04T10:11:12"_s);
        QCOMPARE(ResultadoDaSincronizacao::Do_Texto(m.Memoria().Estado().Resultado).conflitos, 1);
    }

    void uma_corrida_acaba_uma_vez()
    {
        UmPar m;
        auto corrida = m.Nova();
        QList<Fim> fins;
        connect(corrida.get(), &Sincronizacao::Terminada, [&](const auto &r) { fins << r.fim; });
        corrida->Comecar();
        QTRY_COMPARE(fins, QList<Fim>{Fim::Feita});
        corrida->Cancelar();
        QCOMPARE(fins.size(), 1);
        auto outra = m.Nova();
        connect(outra.get(), &Sincronizacao::Terminada, [&](const auto &r) { fins << r.fim; });
        outra->Comecar();
        outra->Cancelar();
        outra->Cancelar();
        QTest::qWait(20);
        QCOMPARE(fins, (QList<Fim>{Fim::Feita, Fim::Cancelada}));
    }

    void quem_sai_do_grupo_sai_do_servidor_e_fica_no_livro()
    {
        UmPar m;
        const int outro = m.s.Novo_Grupo(u"Trabalho"_s);
        m.Mudar(m.ID, u"Grupo"_s, QString::number(outro));
        QCOMPARE(m.Correr().eliminados_la, 1);
        QCOMPARE(m.Valor(m.ID, u"Nome"_s), u"Ana Silva"_s);
    }

    void quem_saiu_do_grupo_e_mudou_la_volta_ao_grupo_uma_vez()
    {
        UmPar m;
        const int outro = m.s.Novo_Grupo(u"Trabalho"_s);
        m.Mudar(m.ID, u"Grupo"_s, QString::number(outro));
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.Correr();
        QCOMPARE(m.s.Linhas(u"SELECT ID, Grupo, Fax FROM TblLista"_s),
                 QStringList{u"%1|%2|9"_s.arg(m.ID).arg(m.grupo)});
        QCOMPARE(m.Ocorrencias(), QStringList{Que(Ocorrencia::EliminadoAqui) + u"Ana Silva|||"_s});
    }

    void quem_passou_para_um_grupo_alheio_nao_se_toca()
    {
        UmPar m;
        const int alheio = m.s.Novo_Grupo(u"Da Rita"_s, m.s.Novo_Utilizador(u"Rita"_s, u"x"_s));
        m.Mudar(m.ID, u"Grupo"_s, QString::number(alheio));
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.Correr();
        QCOMPARE(m.Valor(m.ID, u"Grupo || Fax"_s), QString::number(alheio));
        QCOMPARE(m.Nomes(u"Fax"_s), QStringList{u"9"_s});
    }

    void um_cartao_que_mudou_de_nome_no_servidor_continua_a_ser_o_mesmo()
    {
        UmPar m;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        const QByteArray texto = m.Texto_La(m.href);
        m.servidor.Tirar(m.href);
        m.servidor.Por(u"/livro/outro.vcf"_s, texto);
        const auto fim = m.Correr();
        QCOMPARE(fim.adicionados + fim.eliminados + fim.adicionados_la, nenhum);
        QCOMPARE(m.s.Linhas(u"SELECT ID FROM TblLista"_s), QStringList{QString::number(m.ID)});
        QCOMPARE(m.Valor_La(u"/livro/outro.vcf"_s, Coluna::Telemovel1), u"922"_s);
        QCOMPARE(m.Ocorrencias(), QStringList{});
    }

    void de_dois_cartoes_que_ficam_com_o_nome_de_um_so_o_primeiro_e_o_mesmo()
    {
        UmPar m;
        const QByteArray texto = m.Texto_La(m.href);
        m.servidor.Tirar(m.href);
        m.servidor.Por(u"/livro/outro.vcf"_s, texto);
        m.servidor.Por(u"/livro/terceiro.vcf"_s, texto);
        const auto fim = m.Correr();
        QCOMPARE(fim.adicionados, 1);
        QCOMPARE(fim.eliminados + fim.adicionados_la, nenhum);
        QCOMPARE(m.Nomes(), (QStringList{u"Ana Silva"_s, u"Ana Silva"_s}));
        QCOMPARE(m.Memoria().Pares().size(), 2U);
    }

    void um_cartao_que_mudou_de_nome_e_espera_por_um_direito_espera_pelo_novo()
    {
        UmPar m;
        m.s.geral.SessaoActual.Editar = false;
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        const QByteArray texto = m.Texto_La(m.href);
        m.servidor.Tirar(m.href);
        m.servidor.Por(u"/livro/outro.vcf"_s, texto);
        QCOMPARE(m.Correr().retidos, 1);
        QCOMPARE(m.Memoria().Pares().size(), 1U);
        QCOMPARE(m.Memoria().Pares().front().href, u"/livro/outro.vcf"_s);
        QCOMPARE(m.Valor(m.ID, u"Nome"_s), u"Ana Silva"_s);
        m.s.geral.SessaoActual.Editar = true;
        m.Correr();
        QCOMPARE(m.Nomes(u"Fax"_s), QStringList{u"9"_s});
    }

    void dois_contactos_com_o_mesmo_uid_sao_dois_cartoes()
    {
        UmPar m;
        const int outra = m.Contacto(u"Ana Copiada"_s, u"955"_s);
        CartoesGuardados(m.s.geral.de)
            .Guardar({QString::number(outra), u"u1"_s, Mesa::Cartao(u"u1"_s, u"Ana Copiada"_s)});
        m.Correr();
        QCOMPARE(m.servidor.cartoes.size(), 2U);
        const QString dela = m.Href_Com("Ana Copiada");
        QVERIFY(dela != m.href && !m.Texto_La(dela).contains("UID:u1\r\n"));
        QCOMPARE(m.Texto_La(dela).count("UID:"), 1);
        QCOMPARE(m.Aqui(), m.La());
    }

    void a_fotografia_vai_e_vem_byte_por_byte()
    {
        const QByteArray png = Imagem();
        UmPar m("PHOTO;ENCODING=b;TYPE=PNG:" + png.toBase64() + "\r\n");
        const QString nome = m.Valor(m.ID, u"Fotografia"_s);
        QVERIFY(nome.startsWith(u"bd:"_s));
        QCOMPARE(FotografiasDaBase(m.s.geral.de).Ler(nome), png);
        m.Mudar(m.ID, u"Fotografia"_s, u""_s);
        m.Correr();
        QVERIFY(!m.Texto_La(m.href).contains("PHOTO"));
        m.Mudar(m.ID, u"Fotografia"_s, nome);
        m.Correr();
        QVERIFY(m.Texto_La(m.href).contains("PHOTO"));
        QCOMPARE(m.Valor_La(m.href, Coluna::Fotografia), nome);
    }

    void outra_lingua_nao_e_uma_mudanca()
    {
        UmPar m("ORG:Padaria\r\nX-JOGO:xadrez\r\n");
        QVERIFY(m.Valor(m.ID, u"Obs"_s).contains(u"Empresa: Padaria"_s));
        m.s.geral.IdiomaActual = u"AlemaoDE"_s;
        m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        const auto fim = m.Correr();
        QCOMPARE(fim.conflitos, nenhum);
        QVERIFY(!m.Texto_La(m.href).contains("NOTE"));
        QVERIFY(!m.Valor(m.ID, u"Obs"_s).contains(u"Firma: Padaria"_s)); // twice
    }

    void um_nulo_da_tabela_fica_nulo()
    {
        UmPar m;
        m.s.Escrever(u"UPDATE TblLista SET Website=NULL"_s);
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        const auto fim = m.Correr();
        QCOMPARE(m.Valor(m.ID, u"Website"_s), u"<Null>"_s);
        QCOMPARE(fim.conflitos, nenhum);
    }

    void um_cartao_de_versao_4_fica_de_versao_4()
    {
        Mesa m;
        m.servidor.Por(Mesa::Href(u"u4"_s),
                       "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:u4\r\nFN:Zita\r\nGENDER:F\r\nEND:VCARD\r\n");
        m.Correr();
        m.Mudar(m.ID_De(u"Zita"_s), u"Fax"_s, u"9"_s);
        m.Correr();
        QVERIFY(m.Texto_La(Mesa::Href(u"u4"_s)).contains("VERSION:4.0\r\n"));
        QVERIFY(m.Texto_La(Mesa::Href(u"u4"_s)).contains("GENDER:F"));
    }

    void uma_base_que_recusa_nao_fica_a_meio()
    {
        UmPar m;
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        const auto pares = u"SELECT * FROM TblSincronizados"_s;
        const QStringList antes = m.Aqui() + m.s.Linhas(pares);
        m.s.Escrever(
            u"CREATE TRIGGER nao BEFORE UPDATE ON TblCartoes BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Base);
        QVERIFY(!fim.falha.isEmpty());
        QCOMPARE(m.Aqui() + m.s.Linhas(pares), antes);
        m.s.Escrever(u"DROP TRIGGER nao"_s);
        m.Correr();
        QCOMPARE(m.Aqui(), m.La());
    }

    void sem_o_grupo_nao_ha_corrida_e_o_servidor_fica_como_esta()
    {
        UmPar m;
        m.s.Escrever(u"DELETE FROM TblLista"_s);
        m.s.Escrever(u"DELETE FROM TblGrupos WHERE ID=%1"_s.arg(m.grupo));
        QCOMPARE(m.Correr().fim, Fim::SemGrupo);
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(m.servidor.pedidos, QStringList{});
    }

    void o_progresso_comeca_sem_total_e_chega_ao_seu_fim()
    {
        Mesa m;
        for (int i = 0; i < 3; ++i)
            m.Contacto(u"Pessoa %1"_s.arg(i));
        auto corrida = m.Nova();
        bool acabou = false;
        QList<std::pair<int, int>> ditos;
        connect(corrida.get(), &Sincronizacao::Terminada, [&](const auto &) { acabou = true; });
        connect(corrida.get(), &Sincronizacao::Progresso,
                [&](int feitos, int de_quantos) { ditos << std::pair(feitos, de_quantos); });
        corrida->Comecar();
        QTRY_VERIFY(acabou);
        QCOMPARE(ditos.value(0), std::pair(0, 0));
        QCOMPARE(ditos.last(), std::pair(3, 3));
    }

    void um_servidor_que_escolhe_os_nomes_fica_com_os_seus()
    {
        Mesa m;
        m.servidor.nomeia = [](const QString &) { return u"/livro/dele.vcf"_s; };
        const int ID = m.Contacto(u"Ana Silva"_s, u"911"_s);
        QCOMPARE(m.Correr().adicionados_la, 1);
        QCOMPARE(m.Memoria().Pares().size(), 1U);
        QCOMPARE(m.Memoria().Pares().front().href, u"/livro/dele.vcf"_s);
        m.Mudar(ID, u"Telemovel1"_s, u"922"_s);
        QCOMPARE(m.Correr().alterados_la, 1);
        QCOMPARE(m.servidor.pedidos, (QStringList{u"changes"_s, u"replace /livro/dele.vcf"_s}));
        QCOMPARE(m.servidor.cartoes.size(), 1U);
    }

    void de_quem_se_elimina_enquanto_o_cartao_vai_a_caminho_nada_se_guarda()
    {
        Mesa m;
        const int ID = m.Contacto(u"Ana Silva"_s, u"911"_s);
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"create"_s)) m.Eliminar(ID);
            return RemoteError();
        };
        QCOMPARE(m.Correr().adicionados_la, 1);
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblCartoes"_s), QStringList{});
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        QCOMPARE(m.Correr().eliminados_la, 1);
        QVERIFY(m.servidor.cartoes.empty() && m.Memoria().Pares().empty());
    }

    // Twelve are on their way; whoever is behind them may think better of it until it is his turn.
    void o_que_se_desfaz_antes_da_sua_vez_nao_vai_e_conta_como_feito()
    {
        Mesa m;
        for (int i = 10; i < 25; ++i)
            m.Por_La(u"u%1"_s.arg(i), u"Pessoa %1"_s.arg(i));
        m.Correr();
        const int saiu = m.ID_De(u"Pessoa 22"_s);
        for (int i = 10; i < 25; ++i)
            if (i != 22) m.Mudar(m.ID_De(u"Pessoa %1"_s.arg(i)), u"Fax"_s, u"9"_s);
        m.Mudar(saiu, u"Grupo"_s, QString::number(m.s.Novo_Grupo(u"Trabalho"_s)));
        bool uma_vez = true;
        m.servidor.falha = [&](const QString &pedido) {
            if (!pedido.startsWith(u"replace"_s) || !std::exchange(uma_vez, false)) return RemoteError();
            m.Mudar(saiu, u"Grupo"_s, QString::number(m.grupo));
            m.Mudar(m.ID_De(u"Pessoa 23"_s), u"Fax"_s, {});
            m.Eliminar(m.ID_De(u"Pessoa 24"_s));
            return RemoteError();
        };
        auto corrida = m.Nova();
        QSignalSpy progresso(corrida.get(), &Sincronizacao::Progresso);
        QSignalSpy fins(corrida.get(), &Sincronizacao::Terminada);
        m.servidor.pedidos.clear();
        corrida->Comecar();
        QTRY_COMPARE(fins.size(), 1);
        QCOMPARE(m.servidor.pedidos.filter(u"remove"_s), QStringList{});
        QCOMPARE(m.servidor.pedidos.filter(u"replace"_s).size(), 12);
        QCOMPARE(progresso.constLast(), (QVariantList{15, 15}));
    }

    // A server may take its time to agree with itself; it is not asked for ever.
    void cada_envio_vai_a_primeira_ou_tenta_se_tres_vezes_data()
    {
        QTest::addColumn<QString>("verbo");
        for (const char *verbo : {"create", "replace", "remove"})
            QTest::newRow(verbo) << QString::fromLatin1(verbo);
    }
    void cada_envio_vai_a_primeira_ou_tenta_se_tres_vezes()
    {
        QFETCH(QString, verbo);
        for (const bool recusa : {false, true}) {
            UmPar m;
            if (verbo == u"create"_s) m.Contacto(u"Rui"_s, u"96"_s);
            if (verbo == u"replace"_s) m.Mudar(m.ID, u"Telemovel1"_s, u"922"_s);
            if (verbo == u"remove"_s) m.Eliminar(m.ID);
            m.servidor.falha = [&](const QString &pedido) {
                return recusa && pedido.startsWith(verbo) ? RemoteError{RemoteError::Kind::Changed, 412, {}}
                                                          : RemoteError();
            };
            QCOMPARE(m.Correr().fim, Fim::Feita);
            QStringList verbos;
            for (const QString &pedido : m.servidor.pedidos)
                verbos << pedido.section(u' ', 0, 0);
            QStringList esperados{u"changes"_s, verbo};
            if (recusa) esperados << u"fetch"_s << verbo << u"fetch"_s << verbo;
            QCOMPARE(verbos, esperados);
            QCOMPARE(m.Ocorrencias(), QStringList{});
        }
    }

    void os_cartoes_recebem_se_assim_que_chegam()
    {
        Mesa m;
        m.Por_La(u"u1"_s, u"Ana Silva"_s);
        int desistencias = 0;
        Sincronizacao corrida(m.s.geral, m.s.relogio, std::make_unique<LivroSemFim>(m.servidor, desistencias),
                              Modo::Normal);
        QSignalSpy fins(&corrida, &Sincronizacao::Terminada);
        QList<std::pair<int, int>> ditos;
        connect(&corrida, &Sincronizacao::Progresso,
                [&](int feitos, int de_quantos) { ditos << std::pair(feitos, de_quantos); });
        corrida.Comecar();
        QTRY_COMPARE(m.Nomes(), QStringList{u"Ana Silva"_s});
        QCOMPARE(ditos, (QList<std::pair<int, int>>{{0, 0}, {1, 1}}));
        QVERIFY(fins.isEmpty() && desistencias == 0);
    }

    // What is still on its way to the server would come to nobody.
    void quem_acaba_antes_do_fim_desiste_do_que_pediu_data()
    {
        QTest::addColumn<QString>("acontece");
        QTest::addColumn<Fim>("fim");
        QTest::newRow("a refusal")
            << u"CREATE TRIGGER nao BEFORE INSERT ON TblCartoes BEGIN SELECT RAISE(ABORT, 'no'); END"_s << Fim::Base;
        QTest::newRow("another run") << u"UPDATE TblSincronizacao SET Corrida=Corrida+1"_s << Fim::Noutro;
        QTest::newRow("another book")
            << u"UPDATE TblSincronizacao SET Corrida=Corrida+1, Livro='https://dav.example/x/'"_s << Fim::OutraEscolha;
    }
    void quem_acaba_antes_do_fim_desiste_do_que_pediu()
    {
        QFETCH(QString, acontece);
        QFETCH(Fim, fim);
        Mesa m;
        m.Por_La(u"u1"_s, u"Ana Silva"_s);
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(u"fetch"_s)) m.s.Escrever(acontece);
            return RemoteError();
        };
        int desistencias = 0;
        Sincronizacao corrida(m.s.geral, m.s.relogio, std::make_unique<LivroSemFim>(m.servidor, desistencias),
                              Modo::Normal);
        QList<Fim> fins;
        connect(&corrida, &Sincronizacao::Terminada, [&](const auto &r) { fins << r.fim; });
        corrida.Comecar();
        QTRY_COMPARE(fins, QList<Fim>{fim});
        QCOMPARE(desistencias, 1);
        QCOMPARE(m.Nomes(), QStringList{});
    }

    void uma_corrida_espera_por_todos_os_que_estao_a_caminho()
    {
        Mesa m;
        for (int i = 0; i < 20; ++i)
            m.Contacto(u"Pessoa %1"_s.arg(i));
        int envios = 0;
        m.servidor.demora = [&](const QString &pedido) {
            return pedido.startsWith(u"create"_s) && ++envios > 1 ? 40 : 0;
        };
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, Fim::Feita);
        QCOMPARE(fim.adicionados_la, 20);
    }

    void o_testemunho_lembra_se_enquanto_o_servidor_o_der()
    {
        UmPar m;
        QCOMPARE(m.Memoria().Estado().Testemunho, QByteArray("a:1"));
        m.servidor.da_testemunhos = false;
        m.Correr();
        QCOMPARE(m.Memoria().Estado().Testemunho, QByteArray());
    }

    void depois_de_cancelar_nada_mais_acontece_data()
    {
        QTest::addColumn<QString>("quando");
        QTest::newRow("listing") << u"changes"_s;
        QTest::newRow("cards") << u"fetch"_s;
    }
    void depois_de_cancelar_nada_mais_acontece()
    {
        QFETCH(QString, quando);
        Mesa m;
        m.Por_La(u"u1"_s, u"Ana Silva"_s);
        auto corrida = m.Nova();
        QSignalSpy fins(corrida.get(), &Sincronizacao::Terminada);
        m.servidor.falha = [&](const QString &pedido) {
            if (pedido.startsWith(quando))
                QTimer::singleShot(0, corrida.get(), [&] { corrida->Cancelar(); }); // before the answer comes
            return RemoteError();
        };
        corrida->Comecar();
        QTRY_COMPARE(fins.size(), 1);
        const QStringList pedidos = m.servidor.pedidos;
        QTest::qWait(30);
        QCOMPARE(fins.size(), 1);
        QCOMPARE(m.servidor.pedidos, pedidos);
        QCOMPARE(m.Nomes(), QStringList{});
    }

    // Beside the database it is known as well, but of an old one that was put back only once that is up to date.
    void cada_corrida_conta_se_logo_que_comeca()
    {
        Mesa m;
        const auto contada = [&m] { return m.Memoria().Estado().Corrida; };
        const auto marca = [&m] { return MarcaDaCorrida(m.s.geral).Ler(); };
        m.servidor.falha = [](const QString &) { return RemoteError{RemoteError::Kind::NoNetwork, 0, {}}; };
        for (const int vez : {1, 2}) {
            QVERIFY(!m.Correr().com_cautela);
            QCOMPARE(contada(), vez);
            QCOMPARE(marca(), vez);
        }
        MarcaDaCorrida(m.s.geral).Escrever(9);
        for (const int vez : {3, 4}) {
            QVERIFY(m.Correr().com_cautela);
            QCOMPARE(contada(), -vez);
            QCOMPARE(marca(), 9);
        }
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        QVERIFY(m.Correr().com_cautela);
        QCOMPARE(contada(), 10);
        QCOMPARE(marca(), 10);
        QVERIFY(!m.Correr().com_cautela);
    }

    void cancelar_acaba_logo_e_a_proxima_continua()
    {
        Mesa m;
        for (int i = 0; i < 40; ++i)
            m.Contacto(u"Pessoa %1"_s.arg(i));
        auto corrida = m.Nova();
        std::optional<ResultadoDaSincronizacao> fim;
        connect(corrida.get(), &Sincronizacao::Terminada, [&](const auto &r) { fim = r; });
        connect(corrida.get(), &Sincronizacao::Progresso, [&](int feitos, int) {
            if (feitos >= 13) corrida->Cancelar();
        });
        corrida->Comecar();
        QTRY_VERIFY(fim.has_value());
        QCOMPARE(fim->fim, Fim::Cancelada);
        corrida.reset();
        QVERIFY(m.servidor.cartoes.size() < 40);
        m.Correr();
        QCOMPARE(m.servidor.cartoes.size(), 40U);
        QCOMPARE(m.Aqui(), m.La());
    }

    void o_resultado_le_se_como_se_guardou()
    {
        ResultadoDaSincronizacao resultado;
        resultado.fim = Fim::Perguntar;
        resultado.erro.kind = RemoteError::Kind::Password;
        resultado.alterados_la = 3;
        resultado.pergunta_la = true;
        resultado.pergunta_quantos = 12;
        const auto lido = ResultadoDaSincronizacao::Do_Texto(resultado.Texto());
        QCOMPARE(lido.fim, Fim::Perguntar);
        QCOMPARE(lido.erro.kind, RemoteError::Kind::Password);
        QCOMPARE(lido.alterados_la, 3);
        QVERIFY(lido.pergunta_la);
        QCOMPARE(lido.pergunta_quantos, 12);
    }
};

MORVEX_TESTE(TestSincronizacao)
#include "test_Sincronizacao.moc"
