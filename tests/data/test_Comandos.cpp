// Every one of the named commands on a small database: its rows, the order and the types of its parameters.
#include "platform/Failure.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace
{
using Abertura = std::function<Recordset &(DE &)>;
using Execucao = std::function<void(DE &)>;

struct Leitura {
    std::string_view nome;
    Abertura abrir;
    QStringList linhas; // what the recordset then holds
};

struct Escrita {
    std::string_view nome;
    Execucao executar;
    QString pergunta; // what is asked of the database before and behind it
    QStringList linhas;
};

template<class... P> Leitura Le(ComandoComLinhas comando, const QStringList &linhas, const P &...parametros)
{
    return {comando.Entrada().nome,
            [=](DE &de) -> Recordset & { return de.Abrir(comando, {Value(parametros)...}); }, linhas};
}

template<class... P>
Escrita Escreve(ComandoSemLinhas comando, const QString &pergunta, const QStringList &linhas,
                const P &...parametros)
{
    return {comando.Entrada().nome, [=](DE &de) { de.Executar(comando, {Value(parametros)...}); }, pergunta,
            linhas};
}

QStringList Tudo(Recordset &rs)
{
    QStringList linhas;
    for (; !rs.Eof(); rs.MoveNext())
        linhas << rs.Row().join(u'|');
    rs.Close();
    return linhas;
}

const QString nulos = u"|<Null>"_s;

// Where a server puts the version of a row: behind the columns of its table.
const std::map<std::string_view, QList<int>> versoes{
    {"cmdEditarNome", {20}},       {"cmdListarContactosDoGrupo", {19}}, {"cmdVerUsers", {9}},
    {"cmdEditarUser", {9}},        {"cmdVerificarUtilizador", {9}},     {"cmdVerIDUtilizador", {9}},
    {"cmdListarMemos", {13}},      {"cmdVerificarTarefas", {6}},        {"cmdVerificarTarefas2", {6}},
    {"cmdVerTarefa", {6}},         {"cmdListarTarefas", {6}},           {"cmdVerificarTarefasMemos", {6, 20}}};

QStringList Com_Versoes(const Leitura &ensaio)
{
    const auto onde = versoes.find(ensaio.nome);
    if (!Sistema::Num_Servidor() || onde == versoes.end()) return ensaio.linhas;
    QStringList linhas;
    for (const QString &linha : ensaio.linhas) {
        QStringList celulas = linha.split(u'|');
        for (const int lugar : onde->second)
            celulas.insert(lugar, u"0"_s); // nobody has changed it
        linhas << celulas.join(u'|');
    }
    return linhas;
}

// The users are 7 (Maria) and 8 (Rui). Contact 4 and task 2 point at rows that aren't there.
void Encher(Sistema &s)
{
    s.Escrever(u"BEGIN"_s);
    for (
        const QString &sql :
        {u"INSERT INTO TblGrupos VALUES (1, 'Outros', 0), (2, 'Amigos', 7), (3, 'Família', 8)"_s,
         u"INSERT INTO TblUsers VALUES (7, 'Maria', 'x', 1, 1, 0, 0, 0, 1), (8, 'Rui', NULL, 0, 0, 0, 0, 0, 0)"_s,
         u"INSERT INTO TblLista (ID, Nome, Grupo) VALUES (2, 'ana', 2), (3, 'Álvaro', 3), (4, 'Ana', 99)"_s,
         u"INSERT INTO TblLista (ID, Nome, Dia, Mes, Fotografia, Grupo) VALUES (5, 'Bento', '5', '', 'b.png', 1)"_s,
         u"INSERT INTO TblLista VALUES (1, 'Zita', 't1', 't2', 'fx', 'm1', 'm2', 'm3', '', '', '', 'z@a.pt', "
         u"'zita@b.pt', "
         "'www.zita.pt', 'Rua Nova', 'nota', '', 1, '18')"_s,
         u"INSERT INTO TblMemos VALUES (1, 'T1', 'D1', 1, 2, 3, 4, 'Tahoma', 8.25, 0, 1, 255, 7), "
         "(2, 'T2', 'D2', 5, 6, 7, 8, 'Arial', 10, 0, 0, 0, 0)"_s,
         u"INSERT INTO TblRepeticao VALUES (1, 'Não'), (2, 'Diariamente')"_s,
         u"INSERT INTO TblTarefas VALUES (1, 'a', '2027-02-01', '09:00:00', 7, 1), "
         "(2, 'b', '2027-01-31', '23:00:00', 7, 99), (3, 'c', '2027-02-01', '08:00:00', 8, 2)"_s,
         u"INSERT INTO TblEmails VALUES (1, 'm@a.pt', 'pop.a.pt', 'm', 'pm', 7), (2, 'r@a.pt', 'pop.b.pt', 'r', 'pr', 8)"_s,
         u"INSERT INTO TblIdiomas VALUES (9999, 'pt', 'br', 'uk', 'es', 'it', 'fr', 'de')"_s,
         u"INSERT INTO TblFotografias VALUES ('bd:a.jpg', %1)"_s.arg(s.Bytes("abc")),
         u"INSERT INTO TblCartoes (IDContacto, UID, cartao) VALUES (1, 'u1', %1)"_s.arg(s.Bytes("x")),
         u"INSERT INTO TblCartoes VALUES (5, 'u5', 'c', 'h', 'e', %1, 'r')"_s.arg(s.Bytes("fdc")),
         u"INSERT INTO TblDiferentes VALUES (2, 4)"_s,
         u"INSERT INTO TblSincronizacao VALUES (7, 'e', 'n', 'p', 'l', 'nl', 1, 1, 0, 15, 't', 3, 'v', 'r')"_s,
         u"INSERT INTO TblSincronizados VALUES ('7 /b', 7, 1, '/b', 'e', 0, 's', 'a'), "
         "('7 /a', 7, 5, '/a', '', 1, 's', 'a'), ('8 /b', 8, 2, '/b', '', 0, '', '')"_s,
         u"INSERT INTO TblOcorrencias VALUES (1, 7, 'q', 1, 5, 'n', 'c', 'v', 'o'), "
         "(2, 8, 'q', 2, 0, '', '', '', ''), (3, 7, 'q', 2, 0, '', '', '', '')"_s,
         u"UPDATE TblConfig SET Idioma='InglesUK', Versao='5.1', Remetente='re', Destinatario='de'"_s})
        s.Escrever(sql);
    s.Escrever(u"COMMIT"_s);
}

const std::vector<Leitura> &Leituras()
{
    static const QString ana = u"2|ana"_s;
    static const QString alvaro = u"3|Álvaro"_s;
    static const QString outra_ana = u"4|Ana"_s;
    static const QString bento = u"5|Bento"_s;
    static const QString zita = u"1|Zita"_s;
    static const QString maria = u"7|Maria|x|1|1|0|0|0|1"_s;
    static const QString rui = u"8|Rui|<Null>|0|0|0|0|0|0"_s;
    static const QString tarefa_a = u"1|a|2027-02-01|09:00:00|7|1"_s;
    static const QString tarefa_b = u"2|b|2027-01-31|23:00:00|7|99"_s;
    static const QString memo_1 = u"1|T1|D1|1|2|3|4|Tahoma|8.25|0|1|255|7"_s;
    static const QString email_1 = u"1|m@a.pt|pop.a.pt|m|pm|7"_s;
    static const QString email_2 = u"2|r@a.pt|pop.b.pt|r|pr|8"_s;
    static const QStringList amigos{u"2|Amigos|7"_s};
    static const std::vector<Leitura> leituras{
        Le("cmdListarNomes", {bento + u"|1"_s, zita + u"|1"_s}, u"1"),
        Le("cmdEditarNome",
           {u"Outros|1|Zita|t1|t2|fx|m1|m2|m3||||z@a.pt|zita@b.pt|www.zita.pt|Rua Nova|nota||1|18"_s}, u"1"),
        Le("cmdVerConfig", {u"1|InglesUK|5.1|re|de"_s}),
        Le("cmdLerIdioma", {u"9999|pt|br|uk|es|it|fr|de"_s}, u"9999"),
        Le("cmdListarGrupos", {u"2|Amigos|7"_s, u"1|Outros|0"_s}, u"7"),
        Le("cmdVerIDGrupo", amigos, u"Amigos"),
        Le("cmdVerGrupo", amigos, u"2"),
        Le("cmdProcurarNome", {alvaro, bento}, u"%o%"),
        Le("cmdProcurarTelefone", {u"3"_s + nulos.repeated(2), u"2"_s + nulos.repeated(2),
                                   u"4"_s + nulos.repeated(2), u"5"_s + nulos.repeated(2), u"1|t1|t2"_s}),
        Le("cmdProcurarFax", {u"3"_s + nulos, u"2"_s + nulos, u"4"_s + nulos, u"5"_s + nulos, u"1|fx"_s}),
        Le("cmdProcurarFotografia", {u"5"_s}, u"b.png"),
        Le("cmdProcurarTelemovel", {u"3"_s + nulos.repeated(3), u"2"_s + nulos.repeated(3),
                                    u"4"_s + nulos.repeated(3), u"5"_s + nulos.repeated(3), u"1|m1|m2|m3"_s}),
        Le("cmdProcurarEmail", {zita}, u"%nobody%", u"%ZITA@%"),
        Le("cmdProcurarWebsite", {zita}, u"%zita.pt"),
        Le("cmdProcurarMorada", {zita}, u"rua%"),
        Le("cmdProcurarObs", {zita}, u"%ot%"),
        Le("cmdListarMemos", {memo_1}, u"7"),
        Le("cmdVerUsers", {maria, rui}),
        Le("cmdEditarUser", {rui}, u"8"),
        Le("cmdVerificarTarefas", {tarefa_a}, u"01-02-2027", u"09:00", u"7"),
        Le("cmdVerificarTarefasMemos",
           {tarefa_a + u'|' + memo_1, tarefa_b + u'|' + memo_1, u"3|c|2027-02-01|08:00:00|8|2|"_s + memo_1,
            tarefa_a + u"|2|T2|D2|5|6|7|8|Arial|10|0|0|0|0"_s,
            tarefa_b + u"|2|T2|D2|5|6|7|8|Arial|10|0|0|0|0"_s},
           u"7", u"7"),
        Le("cmdListarRepeticao", {u"1|Não"_s, u"2|Diariamente"_s}),
        Le("cmdListarAniversarios",
           {ana + nulos.repeated(2) + u"|2|7"_s, bento + u"|5||1|0"_s, zita + u"|||1|0"_s}, u"7"),
        Le("cmdVerTarefa", {tarefa_a}, u"1", u"7"),
        Le("cmdVerRepeticao", {u"2|Diariamente"_s}, u"2"),
        Le("cmdListarTarefas", {tarefa_a + u"|Não"_s}, u"7"),
        Le("cmdVerificarTarefas2", {tarefa_b}, u"01-02-2027", u"7"),
        Le("cmdVerificarGrupo", amigos, u"Amigos"),
        Le("cmdVerificarUtilizador", {maria}, u"Maria"),
        Le("cmdVerIDUtilizador", {maria}, u"Maria"),
        Le("cmdListarEmails", {email_1}, u"7"),
        Le("cmdDadosEmail", {email_2}, u"2"),
        Le("cmdListarTodosContactos", {ana + u"|2|7"_s, bento + u"|1|0"_s, zita + u"|1|0"_s}, u"7"),
        Le("cmdSelectUtilizadorGrupo", {u"Maria"_s}, u"Amigos"),
        Le("cmdTotalEmails", {u"2"_s}),
        Le("cmdTotalMemos", {u"2"_s}),
        Le("cmdLerFotografia", {u"abc"_s}, u"bd:a.jpg"),
        Le("cmdLerCartao", {u"u5|fdc"_s}, u"5"),
        Le("cmdListarDiferentes", {u"2|4"_s}),
        Le("cmdListarCartoes", {u"1|u1"_s, u"5|u5"_s}),
        Le("cmdVerSincronizacao", {u"7|e|n|p|l|nl|1|1|0|15|t|3|v|r"_s}, u"7"),
        Le("cmdListarCorridas", {u"7|3"_s}, u"1"),
        Le("cmdListarPares", {u"5|/a||1|s|a"_s, u"1|/b|e|0|s|a"_s}, u"7"),
        Le("cmdListarContactosDoGrupo", {u"2|ana"_s + nulos.repeated(15) + u"|2"_s + nulos}, u"2"),
        Le("cmdListarOcorrencias", {u"3|7|q|2|0||||"_s, u"1|7|q|1|5|n|c|v|o"_s}, u"7"),
    };
    return leituras;
}

const std::vector<Escrita> &Escritas()
{
    static const QString ids_lista = u"SELECT ID FROM TblLista ORDER BY ID"_s;
    static const QString grupos = u"SELECT * FROM TblGrupos ORDER BY ID"_s;
    static const QString donos_memos = u"SELECT ID, Utilizador FROM TblMemos ORDER BY ID"_s;
    static const QString donos_tarefas = u"SELECT ID, Utilizador FROM TblTarefas ORDER BY ID"_s;
    static const QString donos_emails = u"SELECT ID, IdUtilizador FROM TblEmails ORDER BY ID"_s;
    static const QString donos_grupos = u"SELECT ID, IdUtilizador FROM TblGrupos ORDER BY ID"_s;
    static const QString config = u"SELECT * FROM TblConfig"_s;
    static const QString contacto = u"n|a|b|c|d|e|f|1|02|1980|g|h|i|j|k|l|3"_s;
    static const QString memo = u"t|d|1.5|2|3|4|F|8.25|1|0|16777215"_s;
    static const std::vector<Escrita> escritas{
        Escreve("cmdAdicionarNome", u"SELECT * FROM TblLista WHERE ID=6"_s, {u"6|"_s + contacto + nulos},
                u"n", u"a", u"b", u"c", u"d", u"e", u"f", u"1", u"02", u"1980", u"g", u"h", u"i", u"j", u"k",
                u"l", u"3"),
        Escreve("cmdEliminarNome", ids_lista, {u"1"_s, u"2"_s, u"4"_s, u"5"_s}, u"3"),
        Escreve("cmdUpdateNome", u"SELECT * FROM TblLista WHERE Nome='n'"_s, {u"1|"_s + contacto + u"|18"_s},
                u"n", u"a", u"b", u"c", u"d", u"e", u"f", u"1", u"02", u"1980", u"g", u"h", u"i", u"j", u"k",
                u"l", u"3", u"1"),
        Escreve("cmdAdicionarMemo", u"SELECT * FROM TblMemos WHERE ID=3"_s, {u"3|"_s + memo + u"|8"_s}, u"t",
                u"d", u"1,5", u"2", u"3", u"4", u"F", u"8,25", u"True", u"False", u"16777215", u"8"),
        Escreve("cmdUpdateMemo", u"SELECT * FROM TblMemos WHERE Titulo='t'"_s, {u"2|"_s + memo + u"|0"_s},
                u"t", u"d", u"1.5", u"2", u"3", u"4", u"F", u"8.25", u"1", u"0", u"16777215", u"2"),
        Escreve("cmdEliminarMemo", donos_memos, {u"2|0"_s}, u"1"),
        Escreve("cmdAdicionarUser", u"SELECT * FROM TblUsers WHERE ID=9"_s, {u"9|Eva|p|1|0|1|0|1|0"_s},
                u"Eva", u"p", u"1", u"0", u"1", u"0", u"1", u"0"),
        Escreve("cmdUpdateUser", u"SELECT * FROM TblUsers ORDER BY ID"_s,
                {u"7|Maria|x|1|1|0|0|0|1"_s, u"8|Eva|p|0|1|0|1|0|1"_s}, u"Eva", u"p", u"0", u"1", u"0", u"1",
                u"0", u"1", u"8"),
        Escreve("cmdDeleteUser", u"SELECT ID FROM TblUsers"_s, {u"8"_s}, u"7"),
        Escreve("cmdAdicionarGrupo", u"SELECT * FROM TblGrupos WHERE ID=4"_s, {u"4|Novo|0"_s}, u"Novo"),
        Escreve("cmdDeleteGroup", grupos, {u"2|Amigos|7"_s, u"3|Família|8"_s}, u"1"),
        Escreve("cmdEliminarNomeByGroup", ids_lista, {u"2"_s, u"3"_s, u"4"_s}, u"1"),
        Escreve("cmdChangeGroup", u"SELECT ID, Grupo FROM TblLista ORDER BY ID"_s,
                {u"1|3"_s, u"2|2"_s, u"3|3"_s, u"4|99"_s, u"5|3"_s}, u"3", u"1"),
        Escreve("cmdRenameGroup", grupos, {u"1|Outros|0"_s, u"2|Vizinhos|7"_s, u"3|Família|8"_s}, u"Vizinhos",
                u"2"),
        Escreve("cmdAdicionarTarefa", u"SELECT * FROM TblTarefas WHERE ID=4"_s,
                {u"4|t|2027-12-24|08:05:00|7|2"_s}, u"t", u"24-12-2027", u"08:05", u"7", u"2"),
        Escreve("cmdUpdateMemos", donos_memos, {u"1|9"_s, u"2|9"_s}, u"9"),
        Escreve("cmdUpdateTarefas", donos_tarefas, {u"1|9"_s, u"2|9"_s, u"3|9"_s}, u"9"),
        Escreve("cmdDeleteTarefasPorUtilizador", donos_tarefas, {u"3|8"_s}, u"7"),
        Escreve("cmdDeleteMemosPorUtilizador", donos_memos, {u"2|0"_s}, u"7"),
        Escreve("cmdEliminarTarefa", donos_tarefas, {u"2|7"_s, u"3|8"_s}, u"1", u"7"),
        Escreve("cmdUpdateTarefa", u"SELECT * FROM TblTarefas WHERE Tarefa='t'"_s,
                {u"3|t|2028-02-29|23:59:00|7|1"_s}, u"t", u"29-02-2028", u"23:59", u"7", u"1", u"3"),
        Escreve("cmdUpdateEnvelope", config, {u"1|InglesUK|5.1|novo|outro"_s}, u"novo", u"outro"),
        Escreve("cmdUPDATETblConfig", config, {u"1|FrancesFR|5.1|novo|outro"_s}, u"FrancesFR", u"novo",
                u"outro"),
        Escreve("cmdINSERTRepeticao", u"SELECT * FROM TblRepeticao WHERE ID=3"_s, {u"3|Semanalmente"_s},
                u"Semanalmente"),
        Escreve("cmdUPDATEIdioma", config, {u"1|AlemaoDE|5.1|re|de"_s}, u"AlemaoDE"),
        Escreve("cmdUPDATEMSNMessenger", u"SELECT ID, MSNMessenger FROM TblLista WHERE MSNMessenger='2'"_s,
                {u"1|2"_s}, u"2", u"other@a.pt", u"zita@b.pt"),
        Escreve("cmdInserirEmail", u"SELECT * FROM TblEmails WHERE ID=3"_s, {u"3|e|s|u|p|7"_s}, u"e", u"s",
                u"u", u"p", u"7"),
        Escreve("cmdEliminarEmail", donos_emails, {u"2|8"_s}, u"1"),
        Escreve("cmdUpdateEmail", u"SELECT * FROM TblEmails ORDER BY ID"_s,
                {u"1|m@a.pt|pop.a.pt|m|pm|7"_s, u"2|e|s|u|p|8"_s}, u"e", u"s", u"u", u"p", u"2", u"8"),
        Escreve("cmdInserirGrupo", u"SELECT * FROM TblGrupos WHERE ID=4"_s, {u"4|Novo|7"_s}, u"Novo", u"7"),
        Escreve("cmdEliminarEmailsUtilizador", donos_emails, {u"1|7"_s}, u"8"),
        Escreve("cmdUpdateGrupoUser", donos_grupos, {u"1|8"_s, u"2|7"_s, u"3|8"_s}, u"8", u"1"),
        Escreve("cmdUpdateEmails", donos_emails, {u"1|9"_s, u"2|9"_s}, u"9"),
        Escreve("cmdUpdateGrupos", donos_grupos, {u"1|9"_s, u"2|9"_s, u"3|9"_s}, u"9"),
        Escreve("cmdDeleteEmailsPorUtilizador", donos_emails, {u"1|7"_s}, u"8"),
        Escreve("cmdGuardarFotografia", u"SELECT * FROM TblFotografias ORDER BY Nome"_s,
                {u"bd:a.jpg|abc"_s, u"bd:b.jpg|def"_s}, u"bd:b.jpg", QByteArray("def")),
        Escreve("cmdGuardarCartao", u"SELECT * FROM TblCartoes ORDER BY IDContacto"_s,
                {u"1|u1"_s + nulos.repeated(3) + u"|x"_s + nulos, u"5|novo|c|h|e|def|r"_s}, u"5", u"novo",
                QByteArray("def")),
        Escreve("cmdEliminarCartao", u"SELECT IDContacto FROM TblCartoes"_s, {u"1"_s}, u"5"),
        Escreve("cmdEliminarCartoesByGroup", u"SELECT IDContacto FROM TblCartoes"_s, {}, u"1"),
        Escreve("cmdGuardarCartaoDoNovo", u"SELECT IDContacto, UID, cartao FROM TblCartoes ORDER BY IDContacto"_s,
                {u"0|novo|def"_s, u"1|u1|x"_s, u"5|u5|fdc"_s}, u"novo", // nothing was added before it
                QByteArray("def")),
        Escreve("cmdGuardarSincronizacao", u"SELECT * FROM TblSincronizacao"_s,
                {u"7|a|b|c|d|e|2|0|1|30|t|3|v|r"_s}, u"7", u"a", u"b", u"c", u"d", u"e", u"2", u"0", u"1",
                u"30"),
        Escreve("cmdGuardarCorrida", u"SELECT Corrida FROM TblSincronizacao"_s, {u"9"_s}, u"9", u"7"),
        Escreve("cmdGuardarResultado", u"SELECT Testemunho, UltimaVez, Resultado FROM TblSincronizacao"_s,
                {u"a|b|c"_s}, u"a", u"b", u"c", u"7"),
        Escreve("cmdEliminarSincronizacao", u"SELECT * FROM TblSincronizacao"_s, {}, u"7"),
        Escreve("cmdGuardarPar", u"SELECT * FROM TblSincronizados WHERE IdUtilizador=7 ORDER BY Par"_s,
                {u"7 /a|7|5|/a||1|s|a"_s, u"7 /b|7|9|/b|f|2|z|b"_s}, u"7 /b", u"7", u"9", u"/b", u"f", u"2",
                u"z", u"b"),
        Escreve("cmdEliminarPar", u"SELECT Par FROM TblSincronizados ORDER BY Par"_s,
                {u"7 /b"_s, u"8 /b"_s}, u"7 /a"),
        Escreve("cmdEliminarPares", u"SELECT Par FROM TblSincronizados"_s, {u"8 /b"_s}, u"7"),
        Escreve("cmdInserirOcorrencia", u"SELECT * FROM TblOcorrencias WHERE ID=4"_s,
                {u"4|8|x|3|2|n|c|v|o"_s}, u"8", u"x", u"3", u"2", u"n", u"c", u"v", u"o"),
        Escreve("cmdEliminarOcorrencias", u"SELECT ID FROM TblOcorrencias"_s, {u"2"_s}, u"7"),
        Escreve("cmdGuardarDiferentes", u"SELECT * FROM TblDiferentes ORDER BY IDContacto"_s,
                {u"2|4"_s, u"3|5"_s}, u"3", u"5"),
    };
    return escritas;
}
} // namespace

Q_DECLARE_METATYPE(const Leitura *)
Q_DECLARE_METATYPE(const Escrita *)

class TestComandos : public QObject
{
    Q_OBJECT

    std::unique_ptr<Sistema> s_;

    template<class Ensaio> static void Linhas_De_Ensaio(const std::vector<Ensaio> &ensaios)
    {
        QTest::addColumn<const Ensaio *>("ensaio");
        for (const Ensaio &ensaio : ensaios)
            QTest::newRow(ensaio.nome.data()) << &ensaio;
    }
    DE &de() { return s_->geral.de; }

private Q_SLOTS:
    void init()
    {
        s_ = std::make_unique<Sistema>(Sistema::Estado::Vazio);
        Encher(*s_);
    }

    void todos_os_comandos_do_catalogo_tem_o_seu_ensaio()
    {
        std::multiset<std::string_view> ensaiados;
        for (const Leitura &leitura : Leituras())
            ensaiados.insert(leitura.nome);
        for (const Escrita &escrita : Escritas())
            ensaiados.insert(escrita.nome);
        std::multiset<std::string_view> catalogo;
        for (const EntradaDoCatalogo &entrada : comandos::catalogo)
            catalogo.insert(entrada.nome);
        QVERIFY(ensaiados == catalogo);
        QCOMPARE(std::set(catalogo.begin(), catalogo.end()).size(), 95U);
    }

    void le_data() { Linhas_De_Ensaio(Leituras()); }
    void le()
    {
        QFETCH(const Leitura *, ensaio);
        Recordset &rs = ensaio->abrir(de());
        QCOMPARE(rs.State(), Recordset::Open);
        QCOMPARE(rs.RecordCount(), ensaio->linhas.size());
        QStringList linhas = Tudo(rs);
        QStringList esperadas = Com_Versoes(*ensaio);
        if (ensaio->nome ==
            "cmdVerificarTarefasMemos") { // the one query of several rows that asks for no order
            linhas.sort();
            esperadas.sort();
        }
        QCOMPARE(linhas, esperadas);
        QCOMPARE(rs.State(), Recordset::Closed);
    }

    void escreve_data() { Linhas_De_Ensaio(Escritas()); }
    void escreve()
    {
        QFETCH(const Escrita *, ensaio);
        QVERIFY(s_->Linhas(ensaio->pergunta) != ensaio->linhas);
        ensaio->executar(de());
        QCOMPARE(s_->Linhas(ensaio->pergunta), ensaio->linhas);
    }

    void chamar_duas_vezes_sem_fechar_funciona()
    {
        Recordset &primeira = de().Abrir("cmdVerGrupo", {u"1"});
        QCOMPARE(primeira.Fields("NomeGrupo").text(), u"Outros"_s);
        Recordset &segunda = de().Abrir("cmdVerGrupo", {u"2"});
        QCOMPARE(segunda.Fields("NomeGrupo").text(), u"Amigos"_s);
        QCOMPARE(&primeira, &segunda);
        QCOMPARE(segunda.RecordCount(), 1);
    }

    void uma_chamada_que_falha_deixa_o_conjunto_fechado()
    {
        de().Abrir("cmdVerGrupo", {u"1"});
        VERIFICAR_FALHA(de().Abrir("cmdVerGrupo", {u"amigos"}), Failure::TypeMismatch);
        QCOMPARE(de().Rs("cmdVerGrupo").State(), Recordset::Closed);
    }

    void comandos_de_texto_igual_tem_conjuntos_separados()
    {
        Recordset &um = de().Abrir("cmdVerIDGrupo", {u"Outros"});
        Recordset &outro = de().Abrir("cmdVerificarGrupo", {u"Amigos"});
        QCOMPARE(um.Fields("ID").number(), 1);
        QCOMPARE(outro.Fields("ID").number(), 2);
        Recordset &maria = de().Abrir("cmdVerIDUtilizador", {u"Maria"});
        Recordset &rui = de().Abrir("cmdVerificarUtilizador", {u"Rui"});
        QCOMPARE(maria.Fields("ID").number(), 7);
        QCOMPARE(rui.Fields("ID").number(), 8);
    }

    void tarefa_sem_linha_de_repeticao_sai_da_lista_mas_ainda_toca()
    {
        QCOMPARE(Tudo(de().Abrir("cmdListarTarefas", {u"7"})).size(), 1);
        QCOMPARE(Tudo(de().Abrir("cmdVerificarTarefas", {u"31-01-2027", u"23:00", u"7"})).size(), 1);
    }

    void tarefa_toca_no_seu_minuto_exacto_e_nao_antes()
    {
        QCOMPARE(de().Abrir("cmdVerificarTarefas", {u"01-02-2027", u"08:59", u"7"}).RecordCount(), 0);
        QCOMPARE(de().Abrir("cmdVerificarTarefas", {u"01-02-2027", u"9:00", u"7"}).RecordCount(), 1);
        QCOMPARE(de().Abrir("cmdVerificarTarefas2", {u"31-01-2027", u"7"}).RecordCount(), 0);
    }

    void contacto_sem_linha_de_grupo_nao_se_edita_nem_se_lista()
    {
        QCOMPARE(de().Abrir("cmdEditarNome", {u"4"}).RecordCount(), 0);
        QVERIFY(Tudo(de().Abrir("cmdListarTodosContactos", {u"7"})).filter(u"4|Ana"_s).isEmpty());
        QVERIFY(Tudo(de().Abrir("cmdListarAniversarios", {u"7"})).filter(u"4|Ana"_s).isEmpty());
        QVERIFY(!Tudo(de().Abrir("cmdListarNomes", {u"%"})).filter(u"4|Ana"_s).isEmpty());
    }

    void contacto_com_dia_e_sem_mes_fica_em_todas_as_listas()
    {
        for (const QStringList &linhas :
             {Tudo(de().Abrir("cmdListarNomes", {u"1"})), Tudo(de().Abrir("cmdListarTodosContactos", {u"7"})),
              Tudo(de().Abrir("cmdListarAniversarios", {u"7"})), Tudo(de().Abrir("cmdProcurarNome", {u"%"}))})
            QCOMPARE(linhas.filter(u"5|Bento"_s).size(), 1);
    }

    void o_grupo_de_outro_utilizador_nao_se_ve()
    {
        QCOMPARE(Tudo(de().Abrir("cmdListarGrupos", {u"0"})), QStringList{u"1|Outros|0"_s});
        QVERIFY(Tudo(de().Abrir("cmdListarTodosContactos", {u"7"})).filter(u"Álvaro"_s).isEmpty());
        QVERIFY(!Tudo(de().Abrir("cmdListarNomes", {u"3"})).filter(u"Álvaro"_s).isEmpty());
    }

    void o_padrao_do_grupo_e_o_numero_inteiro()
    {
        s_->Escrever(u"UPDATE TblLista SET Grupo=11 WHERE ID=2"_s);
        QCOMPARE(Tudo(de().Abrir("cmdListarNomes", {u"1"})), (QStringList{u"5|Bento|1"_s, u"1|Zita|1"_s}));
        QCOMPARE(Tudo(de().Abrir("cmdListarNomes", {u"11"})), QStringList{u"2|ana|11"_s});
        QCOMPARE(de().Abrir("cmdListarNomes", {u"%"}).RecordCount(), 5);
    }

    void a_caixa_nao_conta_e_os_acentos_contam()
    {
        QCOMPARE(de().Abrir("cmdVerIDGrupo", {u"FAMÍLIA"}).RecordCount(), 1);
        QCOMPARE(de().Abrir("cmdVerIDGrupo", {u"Familia"}).RecordCount(), 0);
        QCOMPARE(de().Abrir("cmdProcurarNome", {u"álv%"}).RecordCount(), 1);
        QCOMPARE(de().Abrir("cmdProcurarNome", {u"alv%"}).RecordCount(), 0);
        QCOMPARE(de().Abrir("cmdVerIDUtilizador", {u"maria"}).RecordCount(), 1);
    }

    void por_conta_apaga_uma_e_por_dono_apaga_todas()
    {
        s_->Escrever(
            u"INSERT INTO TblEmails VALUES (3, 'x', 's', 'u', 'p', 7), (4, 'y', 's', 'u', 'p', 7)"_s);
        de().Executar("cmdEliminarEmail", {u"3"});
        QCOMPARE(s_->Linhas(u"SELECT ID FROM TblEmails ORDER BY ID"_s),
                 (QStringList{u"1"_s, u"2"_s, u"4"_s}));
        de().Executar("cmdEliminarEmailsUtilizador", {u"7"});
        QCOMPARE(s_->Linhas(u"SELECT ID FROM TblEmails"_s), QStringList{u"2"_s});
        de().Executar("cmdDeleteEmailsPorUtilizador", {u"8"});
        QCOMPARE(s_->Linhas(u"SELECT ID FROM TblEmails"_s), QStringList{});
    }

    void o_produto_de_tarefas_e_memos_e_vazio_se_uma_das_tabelas_o_for()
    {
        s_->Escrever(u"DELETE FROM TblMemos"_s);
        QCOMPARE(de().Abrir("cmdVerificarTarefasMemos", {u"7", u"7"}).RecordCount(), 0);
    }

    void so_o_envelope_escreve_em_todas_as_linhas_de_config()
    {
        s_->Escrever(u"INSERT INTO TblConfig VALUES (2, 'a', 'b', 'c', 'd')"_s);
        de().Executar("cmdUPDATEIdioma", {u"FrancesFR"});
        de().Executar("cmdUPDATETblConfig", {u"FrancesFR", u"r", u"t"});
        QCOMPARE(s_->Linhas(u"SELECT * FROM TblConfig WHERE ID=2"_s), QStringList{u"2|a|b|c|d"_s});
        de().Executar("cmdUpdateEnvelope", {u"r2", u"t2"});
        QCOMPARE(s_->Linhas(u"SELECT Remetente, Destinatario FROM TblConfig"_s),
                 (QStringList{u"r2|t2"_s, u"r2|t2"_s}));
    }

    void senha_nula_le_se_como_texto_vazio()
    {
        Recordset &rs = de().Abrir("cmdEditarUser", {u"8"});
        QVERIFY(rs.Fields("Pass").isNull());
        QCOMPARE(rs.Fields("Pass").textOrEmpty(), u""_s);
    }

    void nulo_e_vazio_guardam_se_cada_um_como_e()
    {
        de().Executar("cmdInserirEmail", {u"", nullptr, u"u", u"p", u"7"});
        QCOMPARE(s_->Linhas(u"SELECT Email, ServerName FROM TblEmails WHERE ID=3"_s),
                 QStringList{u"|<Null>"_s});
    }

    void o_numero_de_uma_linha_apagada_nao_volta()
    {
        de().Executar("cmdDeleteUser", {u"8"});
        QCOMPARE(s_->Novo_Utilizador(u"Eva"_s, u"p"_s), 9);
    }

    void um_valor_que_nao_serve_a_coluna_falha_e_nada_escreve_data()
    {
        QTest::addColumn<Execucao>("executar");
        QTest::newRow("day that does not exist") << Execucao([](DE &de) {
            de.Executar("cmdAdicionarTarefa", {u"t", u"31-04-2027", u"08:00", u"7", u"1"});
        });
        QTest::newRow("empty time") << Execucao([](DE &de) {
            de.Executar("cmdAdicionarTarefa", {u"t", u"30-04-2027", u"", u"7", u"1"});
        });
        QTest::newRow("empty right") << Execucao([](DE &de) {
            de.Executar("cmdAdicionarUser", {u"", u"", u"", u"1", u"1", u"1", u"1", u"1"});
        });
        QTest::newRow("owner that is no number") << Execucao([](DE &de) {
            de.Executar("cmdInserirGrupo", {u"n", u"Maria"});
        });
        QTest::newRow("key beyond 32 bits")
            << Execucao([](DE &de) { de.Executar("cmdEliminarNome", {u"4294967297"}); });
    }
    void um_valor_que_nao_serve_a_coluna_falha_e_nada_escreve()
    {
        QFETCH(Execucao, executar);
        const QString contagem =
            u"SELECT (SELECT count(*) FROM TblTarefas), (SELECT count(*) FROM TblUsers), "
            "(SELECT count(*) FROM TblGrupos), (SELECT count(*) FROM TblLista)"_s;
        VERIFICAR_FALHA(executar(de()), Failure::TypeMismatch);
        QCOMPARE(s_->Linhas(contagem), QStringList{u"3|2|3|5"_s});
    }

    void um_numero_errado_de_parametros_falha()
    {
        VERIFICAR_FALHA(de().Abrir("cmdVerGrupo"), Failure::StoreError);
        VERIFICAR_FALHA(de().Executar("cmdAdicionarGrupo", {u"a", u"b"}), Failure::StoreError);
    }
};

MORVEX_TESTE(TestComandos)
#include "test_Comandos.moc"
