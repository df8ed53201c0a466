#include "sincronizacao/GrupoLocal.h"

#include "cards/FonteDeContactos.h"
#include "data/CartoesGuardados.h"
#include "data/Fotografias.h"
#include "data/Geral.h"
#include "store/Row.h"
#include "vcard/CardPatch.h"
#include "vcard/CardReader.h"

#include <limits>
#include <QUuid>

namespace
{
constexpr qint64 maior_ID = std::numeric_limits<qint16>::max(); // a contact of a higher one can't be opened

ColunasDoContacto Colunas_Da_Linha(const Row &linha)
{
    ColunasDoContacto colunas;
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        colunas.valores.at(i) = linha.field(linha.column(ColunasDoContacto::na_tabela.at(i))).textOrEmpty();
    return colunas;
}
} // namespace

GrupoLocal::GrupoLocal(Geral &geral, int IDGrupo) : geral_(geral), IDGrupo_(IDGrupo) {}

bool GrupoLocal::Existe() const
{
    bool existe = false;
    geral_.de.Percorrer("cmdListarGrupos", {geral_.SessaoActual.IdUtilizador}, [&](const Row &linha) {
        existe = existe || linha.field(linha.column("ID")).number() == IDGrupo_;
    });
    return existe;
}

std::map<int, ColunasDoContacto> GrupoLocal::Todos() const
{
    std::map<int, ColunasDoContacto> todos;
    geral_.de.Percorrer("cmdListarContactosDoGrupo", {IDGrupo_}, [&](const Row &linha) {
        todos.emplace(linha.field(linha.column("ID")).number(), Colunas_Da_Linha(linha));
    });
    return todos;
}

void GrupoLocal::Percorrer_UIDs(const std::function<void(const QString &UID, int ID)> &um) const
{
    CartoesGuardados(geral_.de).Percorrer([&](const QString &ID, const QString &UID) {
        if (!UID.isEmpty()) um(UID, ID.toInt());
    });
}

std::optional<GrupoLocal::Linha> GrupoLocal::Ler(int ID) const
{
    std::optional<Linha> lida;
    geral_.de.Percorrer("cmdEditarNome", {ID}, [&](const Row &linha) {
        lida.emplace();
        lida->colunas = Colunas_Da_Linha(linha);
        for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
            lida->nulas[i] = linha.field(linha.column(ColunasDoContacto::na_tabela.at(i))).isNull();
    });
    if (!lida || E_Deste_Grupo(*lida)) return lida;
    lida->a_vista = false;
    const QString &grupo = lida->colunas[Coluna::IDGrupo];
    geral_.de.Percorrer("cmdListarGrupos", {geral_.SessaoActual.IdUtilizador}, [&](const Row &linha) {
        lida->a_vista = lida->a_vista || linha.field(linha.column("ID")).text() == grupo;
    });
    return lida;
}

bool GrupoLocal::E_Deste_Grupo(const Linha &linha) const
{
    return linha.colunas[Coluna::IDGrupo] == QString::number(IDGrupo_);
}

int GrupoLocal::Inserir(const ContactoDaFonte &fonte)
{
    if (geral_.de.Ultimo_ID("TblLista") >= maior_ID) throw LivroCheio();
    const auto v = [&](std::size_t i) -> const QString & { return fonte.lido.colunas.valores.at(i); };
    geral_.de.Executar("cmdAdicionarNome", {v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10),
                                            v(11), v(12), v(13), v(14), v(15), IDGrupo_});
    Guardar_Fotografia(fonte.lido.colunas, fonte);
    return static_cast<int>(geral_.de.Ultimo_ID("TblLista"));
}

// A Null that was there and gets no value stays one.
void GrupoLocal::Actualizar(int ID, const Linha &antes, const ColunasDoContacto &colunas,
                            const ContactoDaFonte &fonte)
{
    const auto v = [&](std::size_t i) -> Value {
        const QString &valor = colunas.valores.at(i);
        return antes.nulas[i] && valor.isEmpty() ? Value(nullptr) : Value(valor);
    };
    geral_.de.Executar("cmdUpdateNome", {v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10),
                                         v(11), v(12), v(13), v(14), v(15), IDGrupo_, ID});
    Guardar_Fotografia(colunas, fonte);
}

void GrupoLocal::Guardar_Fotografia(const ColunasDoContacto &colunas, const ContactoDaFonte &fonte)
{
    const QString &nome = colunas[Coluna::Fotografia];
    if (nome.isEmpty() || nome != fonte.lido.colunas[Coluna::Fotografia]) return;
    FotografiasDaBase fotografias(geral_.de);
    if (fotografias.Ler(nome).isEmpty()) fotografias.Guardar(nome, Fotografia_Do_Cartao(fonte.cartao, nome));
}

void GrupoLocal::Eliminar(int ID)
{
    geral_.de.Executar("cmdEliminarNome", {ID});
    CartoesGuardados(geral_.de).Eliminar(QString::number(ID));
}

QByteArray GrupoLocal::Cartao(int ID) const
{
    const auto guardado = CartoesGuardados(geral_.de).Ler(QString::number(ID));
    return guardado ? guardado->cartao : QByteArray();
}

QString GrupoLocal::UID(int ID) const
{
    const auto guardado = CartoesGuardados(geral_.de).Ler(QString::number(ID));
    return guardado ? guardado->UID : QString();
}

void GrupoLocal::Dar_Outro_UID(int ID)
{
    QByteArray cartao = Cartao(ID);
    const CardFile ficheiro = CardReader().read(cartao);
    // Without one in the card it is written with the next patch.
    if (!ficheiro.cards.empty())
        cartao = patchedCard(ficheiro.cards.front(), ficheiro.cards.front().all("UID"), {});
    Guardar_Cartao(ID, QUuid::createUuid().toString(QUuid::WithoutBraces), cartao);
}

void GrupoLocal::Guardar_Cartao(int ID, const QString &UID, const QByteArray &cartao)
{
    CartoesGuardados(geral_.de).Guardar({QString::number(ID), UID, cartao});
}
