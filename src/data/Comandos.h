// The catalogue of the 94 named commands: the SQL that reaches morvex.mdb, but for the merge's one question
// for all groups at once and for what puts deleted rows back as they were. One entry a command.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

enum class Linhas { SemLinhas, ComLinhas }; // whether a command returns rows, and so owns a recordset

struct EntradaDoCatalogo {
    std::string_view nome;
    Linhas linhas;
    std::string_view tabela;     // the table that holds the parameters' columns
    std::string_view parametros; // their columns in the order of the ?; "~" marks a LIKE pattern
    std::string_view sql;
    std::string_view desempate = {}; // what orders the rows that the SQL leaves without an order, or with the same place
};

namespace comandos
{
using enum Linhas;

// clang-format off
inline constexpr std::array catalogo = std::to_array<EntradaDoCatalogo>({
    {"cmdListarNomes", ComLinhas, "TblLista",
     "~Grupo",
     "SELECT ID, Nome, Grupo FROM TblLista WHERE (Grupo LIKE ?)  ORDER BY Nome, ID"},
    {"cmdEditarNome", ComLinhas, "TblLista",
     "ID",
     "SELECT TblGrupos.NomeGrupo, TblLista.* FROM TblLista, TblGrupos WHERE TblLista.Grupo = TblGrupos.ID "
     "AND (TblLista.ID = ?)"},
    {"cmdAdicionarNome", SemLinhas, "TblLista",
     "Nome Telefone1 Telefone2 Fax Telemovel1 Telemovel2 Telemovel3 Dia Mes Ano Email1 Email2 Website "
     "Morada Obs Fotografia Grupo",
     "INSERT INTO TblLista (Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3, Dia, Mes, "
     "Ano, Email1, Email2, Website, Morada, Obs, Fotografia, Grupo) VALUES "
     "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"},
    {"cmdVerConfig", ComLinhas, "TblConfig",
     "",
     "SELECT * FROM TblConfig",
     "ID"},
    {"cmdLerIdioma", ComLinhas, "TblIdiomas",
     "ID",
     "SELECT * FROM TblIdiomas WHERE ID=?"},
    {"cmdListarGrupos", ComLinhas, "TblGrupos",
     "IdUtilizador",
     "SELECT * FROM TblGrupos WHERE IdUtilizador=0 OR IdUtilizador=? ORDER BY NomeGrupo",
     "ID"},
    {"cmdVerIDGrupo", ComLinhas, "TblGrupos",
     "NomeGrupo",
     "SELECT * FROM TblGrupos WHERE (NomeGrupo = ?)",
     "ID"},
    {"cmdEliminarNome", SemLinhas, "TblLista",
     "ID",
     "DELETE * FROM TblLista WHERE ID=?"},
    {"cmdVerGrupo", ComLinhas, "TblGrupos",
     "ID",
     "SELECT * FROM TblGrupos WHERE ID=?"},
    {"cmdUpdateNome", SemLinhas, "TblLista",
     "Nome Telefone1 Telefone2 Fax Telemovel1 Telemovel2 Telemovel3 Dia Mes Ano Email1 Email2 Website "
     "Morada Obs Fotografia Grupo ID",
     "UPDATE TblLista SET Nome = ?, Telefone1 = ?, Telefone2 = ?, Fax = ?, Telemovel1 = ?, Telemovel2 = ?, "
     "Telemovel3 = ?, Dia = ?, Mes = ?, Ano = ?, Email1 = ?, Email2 = ?, Website = ?, Morada = ?, Obs = ?, "
     "Fotografia = ?, Grupo = ? WHERE (ID = ?)"},
    {"cmdProcurarNome", ComLinhas, "TblLista",
     "~Nome",
     "SELECT ID, Nome FROM TblLista WHERE (Nome LIKE ?) ORDER BY Nome",
     "ID"},
    {"cmdProcurarTelefone", ComLinhas, "TblLista",
     "",
     "SELECT ID, Telefone1, Telefone2 FROM TblLista ORDER BY Nome, ID"},
    {"cmdProcurarFotografia", ComLinhas, "TblLista",
     "Fotografia",
     "SELECT ID FROM TblLista WHERE (Fotografia = ?) ORDER BY ID"},
    {"cmdProcurarFax", ComLinhas, "TblLista",
     "",
     "SELECT ID, Fax FROM TblLista ORDER BY Nome, ID"},
    {"cmdProcurarTelemovel", ComLinhas, "TblLista",
     "",
     "SELECT ID, Telemovel1, Telemovel2, Telemovel3 FROM TblLista ORDER BY Nome, ID"},
    {"cmdProcurarEmail", ComLinhas, "TblLista",
     "~Email1 ~Email2",
     "SELECT ID, Nome FROM TblLista WHERE Email1 LIKE ? OR Email2 LIKE ? ORDER BY Nome",
     "ID"},
    {"cmdProcurarWebsite", ComLinhas, "TblLista",
     "~Website",
     "SELECT ID, Nome FROM TblLista WHERE (Website LIKE ?) ORDER BY Nome",
     "ID"},
    {"cmdProcurarMorada", ComLinhas, "TblLista",
     "~Morada",
     "SELECT ID, Nome FROM TblLista WHERE (Morada LIKE ?) ORDER BY Nome",
     "ID"},
    {"cmdProcurarObs", ComLinhas, "TblLista",
     "~Obs",
     "SELECT ID, Nome FROM TblLista WHERE (Obs LIKE ?) ORDER BY Nome",
     "ID"},
    {"cmdListarMemos", ComLinhas, "TblMemos",
     "Utilizador",
     "SELECT * FROM TblMemos WHERE Utilizador=?",
     "ID"},
    {"cmdAdicionarMemo", SemLinhas, "TblMemos",
     "Titulo Descricao LeftForm TopForm Width Height FontName FontSize FontBold FontItalic CorFundo "
     "Utilizador",
     "INSERT INTO TblMemos(Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, FontSize, "
     "FontBold, FontItalic, CorFundo, Utilizador) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"},
    {"cmdUpdateMemo", SemLinhas, "TblMemos",
     "Titulo Descricao LeftForm TopForm Width Height FontName FontSize FontBold FontItalic CorFundo ID",
     "UPDATE TblMemos SET Titulo = ?, Descricao = ?, LeftForm = ?, TopForm = ?, Width = ?, Height = ?, "
     "FontName = ?, FontSize = ?, FontBold = ?, FontItalic = ?, CorFundo = ? WHERE (ID = ?)"},
    {"cmdEliminarMemo", SemLinhas, "TblMemos",
     "ID",
     "DELETE * FROM TblMemos WHERE ID=?"},
    {"cmdVerUsers", ComLinhas, "TblUsers",
     "",
     "SELECT * FROM TblUsers",
     "ID"},
    {"cmdAdicionarUser", SemLinhas, "TblUsers",
     "Utilizador Pass SystemTray Adicionar Editar Eliminar Grupos Utilizadores",
     "INSERT INTO TblUsers (Utilizador, Pass, SystemTray, Adicionar, Editar, Eliminar, Grupos, "
     "Utilizadores) VALUES (?,?,?,?,?,?,?,?)"},
    {"cmdUpdateUser", SemLinhas, "TblUsers",
     "Utilizador Pass SystemTray Adicionar Editar Eliminar Grupos Utilizadores ID",
     "UPDATE TblUsers SET Utilizador = ?, Pass = ?, SystemTray = ?, Adicionar = ?, Editar = ?, Eliminar = "
     "?, Grupos = ?, Utilizadores = ? WHERE (ID = ?)"},
    {"cmdEditarUser", ComLinhas, "TblUsers",
     "ID",
     "SELECT * FROM TblUsers WHERE ID=?"},
    {"cmdDeleteUser", SemLinhas, "TblUsers",
     "ID",
     "DELETE * FROM TblUsers WHERE ID=?"},
    {"cmdAdicionarGrupo", SemLinhas, "TblGrupos",
     "NomeGrupo",
     "INSERT INTO TblGrupos (NomeGrupo) VALUES (?)"},
    {"cmdDeleteGroup", SemLinhas, "TblGrupos",
     "ID",
     "DELETE * FROM TblGrupos WHERE ID=?"},
    {"cmdEliminarNomeByGroup", SemLinhas, "TblLista",
     "Grupo",
     "DELETE * FROM TblLista WHERE Grupo=?"},
    {"cmdChangeGroup", SemLinhas, "TblLista",
     "Grupo Grupo",
     "UPDATE TblLista SET Grupo=? WHERE (Grupo=?)"},
    {"cmdRenameGroup", SemLinhas, "TblGrupos",
     "NomeGrupo ID",
     "UPDATE TblGrupos SET NomeGrupo = ? WHERE (ID = ?)"},
    {"cmdVerificarTarefas", ComLinhas, "TblTarefas",
     "Data Hora Utilizador",
     "SELECT * FROM TblTarefas WHERE (Data<=?) And (Hora<=?) And (Utilizador=?) ORDER BY Data ASC , Hora ASC",
     "ID"},
    {"cmdAdicionarTarefa", SemLinhas, "TblTarefas",
     "Tarefa Data Hora Utilizador IDRepeticao",
     "INSERT INTO TblTarefas(Tarefa, Data, Hora, Utilizador, IDRepeticao) VALUES (?, ?, ?, ?, ?)"},
    {"cmdUpdateMemos", SemLinhas, "TblMemos",
     "Utilizador",
     "UPDATE TblMemos SET Utilizador=?"},
    {"cmdUpdateTarefas", SemLinhas, "TblTarefas",
     "Utilizador",
     "UPDATE TblTarefas SET Utilizador=?"},
    {"cmdVerificarTarefasMemos", ComLinhas, "TblTarefas",
     "Utilizador Utilizador",
     "SELECT * FROM TblTarefas, TblMemos WHERE (TblTarefas.Utilizador = ?) OR (TblMemos.Utilizador = ?)",
     "TblTarefas.ID, TblMemos.ID"},
    {"cmdDeleteTarefasPorUtilizador", SemLinhas, "TblTarefas",
     "Utilizador",
     "DELETE * FROM TblTarefas WHERE (Utilizador = ?)"},
    {"cmdDeleteMemosPorUtilizador", SemLinhas, "TblMemos",
     "Utilizador",
     "DELETE * FROM TblMemos WHERE (Utilizador = ?)"},
    {"cmdListarRepeticao", ComLinhas, "TblRepeticao",
     "",
     "SELECT * FROM TblRepeticao ORDER BY ID"},
    {"cmdListarAniversarios", ComLinhas, "TblGrupos",
     "IdUtilizador",
     "SELECT TblLista.ID, TblLista.Nome, TblLista.Dia, TblLista.Mes, TblLista.Grupo, TblGrupos.IdUtilizador "
     "FROM TblLista INNER JOIN TblGrupos ON TblLista.Grupo = TblGrupos.ID WHERE "
     "(((TblGrupos.IdUtilizador)=0 Or (TblGrupos.IdUtilizador)=?)) ORDER BY TblLista.nome",
     "TblLista.ID"},
    {"cmdVerTarefa", ComLinhas, "TblTarefas",
     "ID Utilizador",
     "SELECT * FROM TblTarefas WHERE (ID = ?) AND (Utilizador = ?)"},
    {"cmdEliminarTarefa", SemLinhas, "TblTarefas",
     "ID Utilizador",
     "DELETE * FROM TblTarefas WHERE (ID = ?) AND (Utilizador = ?)"},
    {"cmdVerRepeticao", ComLinhas, "TblRepeticao",
     "ID",
     "SELECT * FROM TblRepeticao WHERE (ID = ?)"},
    {"cmdUpdateTarefa", SemLinhas, "TblTarefas",
     "Tarefa Data Hora Utilizador IDRepeticao ID",
     "UPDATE TblTarefas SET Tarefa = ?, Data = ?, Hora = ?, Utilizador = ?, IDRepeticao = ? WHERE (ID = ?)"},
    {"cmdListarTarefas", ComLinhas, "TblTarefas",
     "Utilizador",
     "SELECT TblTarefas.*, TblRepeticao.Nome AS NomeRepeticao FROM TblTarefas, TblRepeticao WHERE "
     "TblTarefas.IDRepeticao = TblRepeticao.ID AND Utilizador=? ORDER BY Data ASC, Hora ASC",
     "TblTarefas.ID"},
    {"cmdUpdateEnvelope", SemLinhas, "TblConfig",
     "Remetente Destinatario",
     "UPDATE TblConfig SET Remetente = ?, Destinatario = ?"},
    {"cmdVerificarTarefas2", ComLinhas, "TblTarefas",
     "Data Utilizador",
     "SELECT * FROM TblTarefas WHERE (Data<?) And (Utilizador=?) ORDER BY Data ASC , Hora ASC",
     "ID"},
    {"cmdVerificarGrupo", ComLinhas, "TblGrupos",
     "NomeGrupo",
     "SELECT * FROM TblGrupos WHERE NomeGrupo=?",
     "ID"},
    {"cmdVerificarUtilizador", ComLinhas, "TblUsers",
     "Utilizador",
     "SELECT * FROM TblUsers WHERE Utilizador=?",
     "ID"},
    {"cmdVerIDUtilizador", ComLinhas, "TblUsers",
     "Utilizador",
     "SELECT * FROM TblUsers WHERE (Utilizador = ?)",
     "ID"},
    {"cmdUPDATETblConfig", SemLinhas, "TblConfig",
     "Idioma Remetente Destinatario",
     "UPDATE TblConfig SET Idioma = ?, Remetente = ?, Destinatario = ? WHERE (ID = 1)"},
    {"cmdINSERTRepeticao", SemLinhas, "TblRepeticao",
     "Nome",
     "INSERT INTO TblRepeticao (Nome) VALUES (?)"},
    {"cmdUPDATEIdioma", SemLinhas, "TblConfig",
     "Idioma",
     "UPDATE TblConfig SET Idioma = ? WHERE (ID = 1)"},
    {"cmdUPDATEMSNMessenger", SemLinhas, "TblLista",
     "MSNMessenger Email1 Email2",
     "UPDATE TblLista SET MSNMessenger = ? WHERE (Email1 = ? OR Email2=?)"},
    {"cmdListarEmails", ComLinhas, "TblEmails",
     "IdUtilizador",
     "SELECT * FROM TblEmails WHERE IdUtilizador=? ORDER BY ID"},
    {"cmdDadosEmail", ComLinhas, "TblEmails",
     "ID",
     "SELECT * FROM TblEmails WHERE ID=?"},
    {"cmdInserirEmail", SemLinhas, "TblEmails",
     "Email ServerName Username PalavraPasse IdUtilizador",
     "INSERT INTO TblEmails (Email,ServerName,Username, PalavraPasse,IdUtilizador) VALUES (?,?,?,?,?)"},
    {"cmdEliminarEmail", SemLinhas, "TblEmails",
     "ID",
     "DELETE * FROM TblEmails WHERE ID=?"},
    {"cmdUpdateEmail", SemLinhas, "TblEmails",
     "Email ServerName Username PalavraPasse ID IdUtilizador",
     "UPDATE TblEmails SET Email = ?, ServerName = ?, Username = ?, PalavraPasse = ? WHERE (ID = ?) AND "
     "(IdUtilizador = ?)"},
    {"cmdInserirGrupo", SemLinhas, "TblGrupos",
     "NomeGrupo IdUtilizador",
     "INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES (?, ?)"},
    {"cmdListarTodosContactos", ComLinhas, "TblGrupos",
     "IdUtilizador",
     "SELECT TblLista.ID, TblLista.Nome, TblLista.Grupo, TblGrupos.IdUtilizador FROM TblLista INNER JOIN "
     "TblGrupos ON TblLista.Grupo = TblGrupos.ID WHERE (((TblGrupos.IdUtilizador)=0 Or "
     "(TblGrupos.IdUtilizador)=?)) ORDER BY TblLista.Nome, TblLista.ID"},
    {"cmdEliminarEmailsUtilizador", SemLinhas, "TblEmails",
     "IdUtilizador",
     "DELETE * FROM TblEmails WHERE IdUtilizador=?"},
    {"cmdUpdateGrupoUser", SemLinhas, "TblGrupos",
     "IdUtilizador ID",
     "UPDATE TblGrupos SET IdUtilizador = ? WHERE (ID = ?)"},
    {"cmdSelectUtilizadorGrupo", ComLinhas, "TblGrupos",
     "NomeGrupo",
     "SELECT TblUsers.Utilizador FROM TblGrupos INNER JOIN TblUsers ON TblGrupos.IdUtilizador = TblUsers.ID "
     "WHERE (((TblGrupos.NomeGrupo)=?));",
     "TblGrupos.ID"},
    {"cmdUpdateEmails", SemLinhas, "TblEmails",
     "IdUtilizador",
     "UPDATE TblEmails SET IdUtilizador=?"},
    {"cmdUpdateGrupos", SemLinhas, "TblGrupos",
     "IdUtilizador",
     "UPDATE TblGrupos SET IdUtilizador=?"},
    {"cmdDeleteEmailsPorUtilizador", SemLinhas, "TblEmails",
     "IdUtilizador",
     "DELETE * FROM TblEmails WHERE (IdUtilizador = ?)"},
    {"cmdTotalEmails", ComLinhas, "TblEmails",
     "",
     "SELECT COUNT(ID) AS TotalEmails FROM TblEmails"},
    {"cmdTotalMemos", ComLinhas, "TblMemos",
     "",
     "SELECT COUNT(ID) AS TotalMemos FROM TblMemos"},
    {"cmdGuardarFotografia", SemLinhas, "TblFotografias",
     "Nome Imagem",
     "INSERT INTO TblFotografias (Nome, Imagem) VALUES (?, ?) ON CONFLICT (Nome) DO NOTHING"},
    {"cmdLerFotografia", ComLinhas, "TblFotografias",
     "Nome",
     "SELECT Imagem FROM TblFotografias WHERE Nome=?"},
    {"cmdGuardarCartao", SemLinhas, "TblCartoes",
     "IDContacto UID cartao",
     "INSERT INTO TblCartoes (IDContacto, UID, cartao) VALUES (?, ?, ?) ON CONFLICT (IDContacto) DO UPDATE SET "
     "UID = excluded.UID, cartao = excluded.cartao"},
    {"cmdLerCartao", ComLinhas, "TblCartoes",
     "IDContacto",
     "SELECT UID, cartao FROM TblCartoes WHERE IDContacto=?"},
    {"cmdListarCartoes", ComLinhas, "TblCartoes",
     "",
     "SELECT IDContacto, UID FROM TblCartoes ORDER BY IDContacto"},
    {"cmdEliminarCartao", SemLinhas, "TblCartoes",
     "IDContacto",
     "DELETE * FROM TblCartoes WHERE IDContacto=?"},
    {"cmdEliminarCartoesByGroup", SemLinhas, "TblLista",
     "Grupo",
     "DELETE * FROM TblCartoes WHERE IDContacto IN (SELECT ID FROM TblLista WHERE Grupo=?)"},
    {"cmdGuardarCartaoDoNovo", SemLinhas, "TblCartoes",
     "UID cartao",
     "INSERT INTO TblCartoes (IDContacto, UID, cartao) VALUES (last_insert_rowid(), ?, ?) ON CONFLICT (IDContacto) "
     "DO UPDATE SET UID = excluded.UID, cartao = excluded.cartao"},
    {"cmdGuardarDiferentes", SemLinhas, "TblDiferentes",
     "IDContacto IDOutro",
     "INSERT INTO TblDiferentes (IDContacto, IDOutro) VALUES (?, ?)"},
    {"cmdListarDiferentes", ComLinhas, "TblDiferentes",
     "",
     "SELECT IDContacto, IDOutro FROM TblDiferentes",
     "IDContacto, IDOutro"},
    {"cmdVerSincronizacao", ComLinhas, "TblSincronizacao",
     "IdUtilizador",
     "SELECT * FROM TblSincronizacao WHERE IdUtilizador=?"},
    {"cmdListarCorridas", ComLinhas, "TblSincronizacao",
     "IDGrupo",
     "SELECT IdUtilizador, Corrida FROM TblSincronizacao WHERE IDGrupo=?",
     "IdUtilizador"},
    {"cmdGuardarSincronizacao", SemLinhas, "TblSincronizacao",
     "IdUtilizador Endereco Nome PalavraPasse Livro NomeDoLivro IDGrupo Ligada AoArrancar Minutos",
     "INSERT INTO TblSincronizacao (IdUtilizador, Endereco, Nome, PalavraPasse, Livro, NomeDoLivro, IDGrupo, Ligada, "
     "AoArrancar, Minutos) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (IdUtilizador) DO UPDATE SET "
     "Endereco = excluded.Endereco, Nome = excluded.Nome, PalavraPasse = excluded.PalavraPasse, "
     "Livro = excluded.Livro, NomeDoLivro = excluded.NomeDoLivro, IDGrupo = excluded.IDGrupo, "
     "Ligada = excluded.Ligada, AoArrancar = excluded.AoArrancar, Minutos = excluded.Minutos"},
    {"cmdGuardarCorrida", SemLinhas, "TblSincronizacao",
     "Corrida IdUtilizador",
     "UPDATE TblSincronizacao SET Corrida = ? WHERE (IdUtilizador = ?)"},
    {"cmdGuardarResultado", SemLinhas, "TblSincronizacao",
     "Testemunho UltimaVez Resultado IdUtilizador",
     "UPDATE TblSincronizacao SET Testemunho = ?, UltimaVez = ?, Resultado = ? WHERE (IdUtilizador = ?)"},
    {"cmdEliminarSincronizacao", SemLinhas, "TblSincronizacao",
     "IdUtilizador",
     "DELETE * FROM TblSincronizacao WHERE IdUtilizador=?"},
    {"cmdListarPares", ComLinhas, "TblSincronizados",
     "IdUtilizador",
     "SELECT IDContacto, href, etag, estado, resumo, acordo FROM TblSincronizados WHERE IdUtilizador=? ORDER BY Par"},
    {"cmdGuardarPar", SemLinhas, "TblSincronizados",
     "Par IdUtilizador IDContacto href etag estado resumo acordo",
     "INSERT INTO TblSincronizados (Par, IdUtilizador, IDContacto, href, etag, estado, resumo, acordo) VALUES "
     "(?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (Par) DO UPDATE SET IDContacto = excluded.IDContacto, "
     "etag = excluded.etag, estado = excluded.estado, resumo = excluded.resumo, acordo = excluded.acordo"},
    {"cmdEliminarPar", SemLinhas, "TblSincronizados",
     "Par",
     "DELETE * FROM TblSincronizados WHERE Par=?"},
    {"cmdEliminarPares", SemLinhas, "TblSincronizados",
     "IdUtilizador",
     "DELETE * FROM TblSincronizados WHERE IdUtilizador=?"},
    {"cmdListarContactosDoGrupo", ComLinhas, "TblLista",
     "Grupo",
     "SELECT * FROM TblLista WHERE Grupo=? ORDER BY ID"},
    {"cmdInserirOcorrencia", SemLinhas, "TblOcorrencias",
     "IdUtilizador Quando Que IDContacto Nome Campo Valor Outro",
     "INSERT INTO TblOcorrencias (IdUtilizador, Quando, Que, IDContacto, Nome, Campo, Valor, Outro) VALUES "
     "(?, ?, ?, ?, ?, ?, ?, ?)"},
    {"cmdListarOcorrencias", ComLinhas, "TblOcorrencias",
     "IdUtilizador",
     "SELECT * FROM TblOcorrencias WHERE IdUtilizador=? ORDER BY ID DESC"},
    {"cmdEliminarOcorrencias", SemLinhas, "TblOcorrencias",
     "IdUtilizador",
     "DELETE * FROM TblOcorrencias WHERE IdUtilizador=?"},
});
// clang-format on

static_assert(catalogo.size() == 95);

// Never defined: reaching it in a constant expression is the compiler's error for a misspelt command.
void Nao_ha_tal_comando();

constexpr std::size_t Posicao(std::string_view nome, Linhas linhas)
{
    for (std::size_t i = 0; i < catalogo.size(); ++i)
        if (catalogo[i].nome == nome && catalogo[i].linhas == linhas) return i;
    Nao_ha_tal_comando();
    return catalogo.size();
}
} // namespace comandos

// A command by its name. A name that the catalogue doesn't hold, or that stands for the other kind of command,
// doesn't compile.
template<Linhas linhas> class Comando
{
public:
    template<std::size_t n>
    consteval Comando(const char (&nome)[n]) : posicao_(comandos::Posicao({nome, n - 1}, linhas))
    {
    }

    std::size_t Posicao() const { return posicao_; }
    const EntradaDoCatalogo &Entrada() const { return comandos::catalogo[posicao_]; }

private:
    std::size_t posicao_;
};

using ComandoComLinhas = Comando<Linhas::ComLinhas>;
using ComandoSemLinhas = Comando<Linhas::SemLinhas>;
