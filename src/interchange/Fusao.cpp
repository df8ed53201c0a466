#include "interchange/Fusao.h"

#include "data/Fotografias.h"
#include "data/Geral.h"
#include "interchange/DE2.h"
#include "platform/Failure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::array colunas_do_contacto{
    "Nome", "Telefone1", "Telefone2", "Fax",     "Telemovel1", "Telemovel2", "Telemovel3", "Dia",  "Mes",
    "Ano",  "Email1",    "Email2",    "Website", "Morada",     "Obs",        "Fotografia", "Grupo"};
constexpr std::array colunas_da_tarefa{"Tarefa", "Data", "Hora", "IDRepeticao"};
constexpr std::array colunas_do_memo{"Titulo",   "Descricao", "LeftForm", "TopForm",    "Width",   "Height",
                                     "FontName", "FontSize",  "FontBold", "FontItalic", "CorFundo"};
constexpr std::array colunas_do_utilizador{"Pass",     "SystemTray", "Adicionar",   "Editar",
                                           "Eliminar", "Grupos",     "Utilizadores"};

// Each column on its own: one that can't be read keeps what the row before had.
template<class Valores, class Colunas> void Ler(const Recordset &rs, const Colunas &colunas, Valores &valores)
{
    for (const char *coluna : colunas)
        skipFailure([&] { valores[coluna] = rs.Fields(coluna).textOrEmpty(); });
}

// The question whether there is no such row. One that fails counts as none.
bool Nenhuma_Linha(const std::function<Recordset &()> &abrir)
{
    bool nenhuma = true;
    skipFailure([&] { nenhuma = abrir().RecordCount() == 0; });
    return nenhuma;
}
} // namespace

Fusao::Fusao(Geral &geral, DE2 &de2, const Totais &totais)
    : geral_(geral), de2_(de2), totais_(totais), grupos_daqui_(geral.de)
{
}

bool Fusao::Completa() const
{
    return std::all_of(contagens_.begin(), contagens_.end(), [](const Contagem &c) { return c.Completa(); });
}

void Fusao::Correr()
{
    geral_.de.Esperar_Uma_Vez([this] { Passagens(); });
}

void Fusao::Passagens()
{
    auto &[contactos, tarefas, memos] = contagens_;
    Q_EMIT Progresso(0);
    if (!skipFailure([this] { vindas_.emplace(geral_.de); })) return Nada_Veio();
    Passar(contactos, totais_.Contactos, "cmdAdicionarNome", [this](Contagem &c) { Passar_Contactos(c); });
    Q_EMIT ContactosLidos();
    Passar(tarefas, totais_.Tarefas, "cmdAdicionarTarefa", [this](Contagem &c) { Passar_Tarefas(c); });
    Q_EMIT TarefasLidas();
    Passar(memos, totais_.Memos, "cmdAdicionarMemo", [this](Contagem &c) { Passar_Memos(c); });
    Q_EMIT MemosLidos();
    if (Completa()) skipFailure([this] { vindas_->Acabou(); });
    Q_EMIT Progresso(100);
}

// Who does not know what came earlier brings nothing.
void Fusao::Nada_Veio()
{
    contagens_[0].Lidos = totais_.Contactos;
    contagens_[1].Lidos = totais_.Tarefas;
    contagens_[2].Lidos = totais_.Memos;
}

bool Fusao::Ja_Veio(Contagem &contagem, const QString &especie, const Recordset &linha)
{
    const bool veio = vindas_->Num_Servidor() && vindas_->Tomar(especie, linha.Row());
    contagem.Guardados += veio ? 1 : 0;
    return veio;
}

// What the source was said to hold and did not give has not come either.
void Fusao::Passar(Contagem &contagem, int total, ComandoSemLinhas comando,
                   const std::function<void(Contagem &)> &passagem)
{
    const int antes = geral_.de.Escritos(comando);
    skipFailure([&] { geral_.de.Juntar([&] { passagem(contagem); }); });
    contagem.Lidos = std::max(contagem.Lidos, total);
    contagem.Guardados += geral_.de.Escritos(comando) - antes;
}

// A row that fails is skipped. Where it is the store that fails, and not a value that fits no column, the row
// is missed at the end.
void Fusao::Guardar(Contagem &contagem, const std::function<void()> &inserir)
{
    onFailure(inserir, [&](const Failure &falha) {
        if (falha.number() != Failure::StoreError) ++contagem.Recusados;
    });
}

void Fusao::Contar(const Contagem &contagem, qint16 total)
{
    if (total > 0) Q_EMIT Progresso(static_cast<int>(static_cast<double>(contagem.Lidos) / total * 100));
}

void Fusao::Adicionar_Contacto(Valores &v)
{
    vindas_->Executar("cmdAdicionarNome",
                      {v["Nome"], v["Telefone1"], v["Telefone2"], v["Fax"], v["Telemovel1"], v["Telemovel2"],
                       v["Telemovel3"], v["Dia"], v["Mes"], v["Ano"], v["Email1"], v["Email2"], v["Website"],
                       v["Morada"], v["Obs"], v["Fotografia"], v["Grupo"]});
}

// Before the group: a portion that the picture undoes may take a group with it that was found.
void Fusao::Trazer_Fotografia(const QString &Fotografia)
{
    if (!E_Da_Base(Fotografia)) return;
    skipFailure([&] {
        const QByteArray imagem = de2_.Fotografia(Fotografia);
        if (!imagem.isEmpty()) FotografiasDaBase(geral_.de).Guardar(Fotografia, imagem);
    });
}

// The card goes to the contact added last, so nothing may be added between the two.
void Fusao::Trazer_Contacto(const QString &antigo, Valores &v)
{
    Adicionar_Contacto(v);
    skipFailure([&] {
        const CartaoGuardado cartao = de2_.Cartao(antigo);
        if (!cartao.IDContacto.isEmpty())
            CartoesGuardados(geral_.de).Guardar_Do_Novo(cartao.UID, cartao.cartao);
    });
}

void Fusao::Passar_Contactos(Contagem &contagem)
{
    Valores v;
    de2_.Percorrer(DE2::Morvex5_SELECT_TblLista, [&](const Recordset &rs) {
        ++contagem.Lidos;
        Ler(rs, colunas_do_contacto, v);
        QString antigo;
        skipFailure([&] { antigo = rs.Fields("ID").textOrEmpty(); });
        const bool veio = Ja_Veio(contagem, u"contacto"_s, rs);
        if (!veio) Trazer_Fotografia(v["Fotografia"]);
        if (Trazer_Grupo(v) && !veio) Guardar(contagem, [&] { Trazer_Contacto(antigo, v); });
        Contar(contagem, totais_.Contactos);
    });
}

// The group of that name here, made if there is none. Its ID takes the place of the old one. One that every
// step has found once is not looked for again. Returns false where the store did not take it, or does not tell
// whether it has one: the contact would come into some other group, or the group be made twice.
bool Fusao::Trazer_Grupo(Valores &v)
{
    Esquecer_O_Desfeito();
    QString &nome = v["NomeGrupo"];
    const QString antigo = v["Grupo"];
    if (const auto achado = grupos_.find(antigo); achado != grupos_.end()) {
        nome = achado->second.Nome;
        v["Grupo"] = achado->second.ID;
        return true;
    }
    const bool lido = skipFailure(
        [&] { nome = de2_.Abrir(DE2::Morvex5_SELECT_TblGrupos, antigo).Fields("NomeGrupo").textOrEmpty(); });
    std::optional<QString> ID;
    if (!Procurar_Grupo(nome, ID)) return false;
    if (!ID && !Criar([&] { geral_.de.Executar("cmdAdicionarGrupo", {nome}); }, 236, nome)) return false;
    if (!ID && !Procurar_Grupo(nome, ID)) return false;
    if (ID) v["Grupo"] = *ID;
    if (lido && ID) grupos_[antigo] = {nome, *ID};
    return true;
}

// The groups of an undone portion are not in the database, and others may get their IDs.
void Fusao::Esquecer_O_Desfeito()
{
    if (desfeitas_ == geral_.de.Desfeitas()) return;
    desfeitas_ = geral_.de.Desfeitas();
    grupos_.clear();
    grupos_daqui_.Esquecer();
}

// False where the question fails.
bool Fusao::Procurar_Grupo(const QString &nome, std::optional<QString> &ID)
{
    Esquecer_O_Desfeito();
    return skipFailure([&] { ID = grupos_daqui_.Procurar(nome); });
}

// What the store itself did not take, the report does not claim, and nothing is stored for it. Returns
// whether it was taken, or refused for its value alone. A server is told of what was gathered when it is asked.
bool Fusao::Criar(const std::function<void()> &criar, qint16 texto, const QString &nome)
{
    bool tomado = true;
    const auto criar_ja = [&] {
        criar();
        if (geral_.de.Num_Servidor()) geral_.de.Abrir("cmdVerConfig").Close();
    };
    onFailure(criar_ja, [&](const Failure &falha) { tomado = falha.number() != Failure::StoreError; });
    if (!tomado) return false;
    skipFailure([&] { relatorio_ += geral_.Ler_Idioma(texto) + u": "_s + nome + u"\r\n"_s; });
    return true;
}

void Fusao::Passar_Tarefas(Contagem &contagem)
{
    Valores v;
    de2_.Percorrer(DE2::Morvex5_SELECT_TblTarefas, [&](const Recordset &rs) {
        ++contagem.Lidos;
        Ler(rs, colunas_da_tarefa, v);
        const bool trazido = Trazer_Utilizador(rs, v, {});
        ultimo_utilizador_das_tarefas_ = v["NomeUtilizador"];
        if (trazido && !Ja_Veio(contagem, u"tarefa"_s, rs))
            Guardar(contagem, [&] {
                vindas_->Executar("cmdAdicionarTarefa",
                                  {v["Tarefa"], v["Data"], v["Hora"], IdUtilizador_, v["IDRepeticao"]});
            });
        Contar(contagem, totais_.Tarefas);
    });
}

// A user first made in this pass leaves the settings of a new user to the last task's owner, again.
void Fusao::Passar_Memos(Contagem &contagem)
{
    Valores v;
    de2_.Percorrer(DE2::Morvex5_SELECT_TblMemos, [&](const Recordset &rs) {
        ++contagem.Lidos;
        Ler(rs, colunas_do_memo, v);
        const bool trazido = Trazer_Utilizador(rs, v, ultimo_utilizador_das_tarefas_);
        if (trazido && !Ja_Veio(contagem, u"memo"_s, rs))
            Guardar(contagem, [&] {
                vindas_->Executar("cmdAdicionarMemo",
                                  {v["Titulo"], v["Descricao"], v["LeftForm"], v["TopForm"], v["Width"],
                                   v["Height"], v["FontName"], v["FontSize"], v["FontBold"], v["FontItalic"],
                                   v["CorFundo"], IdUtilizador_});
            });
        Contar(contagem, totais_.Memos);
    });
}

// The user of that name here, made if there is none. Without a name of its own the settings go to
// the user just made. Returns false where the store did not take the user: the row would be somebody else's.
bool Fusao::Trazer_Utilizador(const Recordset &linha, Valores &v,
                              const std::optional<QString> &nome_das_definicoes)
{
    QString &nome = v["NomeUtilizador"];
    skipFailure([&] { IdUtilizador_ = linha.Fields("Utilizador").textOrEmpty(); });
    skipFailure([&] {
        const Recordset &rs = de2_.Abrir(DE2::Morvex5_SELECT_TblUsers, IdUtilizador_);
        skipFailure([&] { nome = rs.Fields("Utilizador").textOrEmpty(); });
        Ler(rs, colunas_do_utilizador, v);
    });
    if (Nenhuma_Linha([&]() -> Recordset & { return geral_.de.Abrir("cmdVerificarUtilizador", {nome}); }) &&
        !Criar_Utilizador(v, nome_das_definicoes.value_or(nome)))
        return false;
    skipFailure(
        [&] { IdUtilizador_ = geral_.de.Abrir("cmdVerIDUtilizador", {nome}).Fields("ID").textOrEmpty(); });
    return true;
}

bool Fusao::Criar_Utilizador(const Valores &v, const QString &nome_das_definicoes)
{
    const auto valor = [&](const char *coluna) {
        const auto achado = v.find(coluna);
        return achado == v.end() ? QString(u""_s) : achado->second;
    };
    const bool tomado = Criar(
        [&] {
            geral_.de.Executar("cmdAdicionarUser",
                               {valor("NomeUtilizador"), valor("Pass"), valor("SystemTray"),
                                valor("Adicionar"), valor("Editar"), valor("Eliminar"), valor("Grupos"),
                                valor("Utilizadores")});
        },
        237, valor("NomeUtilizador"));
    if (!tomado) return false;
    QString ID;
    skipFailure([&] {
        ID = geral_.de.Abrir("cmdVerIDUtilizador", {nome_das_definicoes}).Fields("ID").textOrEmpty();
    });
    geral_.ini.Escrever_Ini(u"emailnotify"_s + ID, u"activo"_s, u"1"_s);
    geral_.ini.Escrever_Ini(u"emailnotify"_s + ID, u"minutos"_s, u"60"_s);
    geral_.ini.Escrever_Ini(u"messenger"_s + ID, u"activo"_s, u"0"_s);
    return true;
}
