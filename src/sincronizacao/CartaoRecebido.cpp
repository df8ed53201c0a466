#include "sincronizacao/CartaoRecebido.h"

using namespace Qt::StringLiterals;

std::optional<ContactoDaFonte> Pessoa_Do_Cartao(const QByteArray &cartao, const QString &idioma)
{
    std::vector<FaltaDaFonte> faltas;
    FonteDeCartoes fonte(cartao, {}, idioma, {});
    while (fonte.Preparar(faltas)) {
    }
    return fonte.Quantos() == 0 ? std::nullopt : fonte.Ler(0, faltas);
}

RecepcaoDeCartoes::RecepcaoDeCartoes(CorridaEmCurso &corrida) : c_(corrida)
{
    c_.grupo.Percorrer_UIDs([this](const QString &UID, int ID) {
        if (c_.livres.contains(ID) || c_.pares.De_Contacto(ID) != nullptr) por_uid_.emplace(UID, ID);
    });
}

void RecepcaoDeCartoes::Tratar(const QString &href, const QByteArray &etag, const QByteArray &texto)
{
    Chegada chegada{href, etag, texto, Resumo_Do_Cartao(texto), {}};
    const Par *par = c_.pares.De_Href(href);
    auto pessoa = Pessoa_Do_Cartao(texto, c_.idioma);
    if (!pessoa) return Ignorar(chegada, par);
    chegada.pessoa = *std::move(pessoa);
    if (Nada_De_Novo(chegada, par)) return;

    const int ID = par == nullptr ? 0 : par->IDContacto;
    if (const auto linha = A_Vista(ID)) return Existente(chegada, ID, *linha, par);
    Sem_O_Seu(chegada, par);
}

// The card's contact is gone, or there was none yet. It may be there all the same: another account that goes
// with this group has brought it in.
void RecepcaoDeCartoes::Sem_O_Seu(const Chegada &chegada, const Par *par)
{
    std::optional<Par> antigo; // under which the card stood before the server gave it another name
    const bool estava_eliminado = par != nullptr && par->IDContacto > 0;
    const int ID = Emparelhar(chegada, antigo);
    if (antigo) par = &*antigo;
    if (const auto linha = A_Vista(ID))
        Existente(chegada, ID, *linha, antigo ? par : nullptr);
    else if (Decidir(Lado::Apagado, Lado::Mudado, c_.circunstancias) == Accao::Reter)
        Reter(chegada, par);
    else
        Novo(chegada, estava_eliminado);
}

// Whose a contact is that the user does not see is nobody's business here.
std::optional<GrupoLocal::Linha> RecepcaoDeCartoes::A_Vista(int ID) const
{
    auto linha = ID > 0 ? c_.grupo.Ler(ID) : std::nullopt;
    return linha && linha->a_vista ? linha : std::nullopt;
}

void RecepcaoDeCartoes::Ignorar(const Chegada &chegada, const Par *par)
{
    Par ignorado = par == nullptr ? Par{chegada.href, 0, {}, {}, {}, {}} : *par;
    ignorado.etag = chegada.etag;
    ignorado.estado = Par::Ignorado;
    c_.pares.Guardar(ignorado);
    if (chegada.resumo.isEmpty()) c_.Apontar({Ocorrencia::Ilegivel, 0, chegada.href, {}, {}, {}, {}});
}

// The server may write a card anew without changing it; and a card that was on its way when the program
// ended has arrived.
bool RecepcaoDeCartoes::Nada_De_Novo(const Chegada &chegada, const Par *par)
{
    if (par == nullptr || par->IDContacto == 0 || par->resumo.isEmpty() || par->resumo != chegada.resumo)
        return false;
    const auto linha = c_.grupo.Ler(par->IDContacto);
    if (!linha && c_.circunstancias.cautela) return false;
    // What is kept of a card that was on its way is not it yet, and may be another book's.
    if (linha && Resumo_Do_Cartao(c_.grupo.Cartao(par->IDContacto)) != chegada.resumo)
        c_.grupo.Guardar_Cartao(par->IDContacto, UID_De(chegada, par->IDContacto), chegada.texto);
    Par agora = *par;
    agora.etag = chegada.etag;
    agora.estado = Par::Acordado;
    c_.pares.Guardar(agora);
    return true;
}

void RecepcaoDeCartoes::Novo(const Chegada &chegada, bool estava_eliminado)
{
    const QString &nome = chegada.pessoa.lido.colunas[Coluna::Nome];
    int ID = 0;
    try {
        ID = c_.grupo.Inserir(chegada.pessoa);
    } catch (const LivroCheio &) {
        c_.pares.Guardar({chegada.href, 0, chegada.etag, Par::PorVer, {}, {}});
        c_.Apontar({Ocorrencia::NaoCabe, 0, nome, {}, {}, {}, {}});
        ++c_.resultado.recusados;
        return;
    }
    c_.grupo.Guardar_Cartao(ID, chegada.pessoa.UID, chegada.texto);
    c_.pares.Guardar(
        {chegada.href, ID, chegada.etag, Par::Acordado, chegada.resumo, chegada.pessoa.lido.colunas});
    if (estava_eliminado) c_.Apontar({Ocorrencia::EliminadoAqui, ID, nome, {}, {}, {}, {}});
    ++c_.resultado.adicionados;
}

// How the card of the agreement reads today, be it in another language than then. Where another card was
// kept since, what the two sides said then was the same.
ColunasDoContacto RecepcaoDeCartoes::Como_Era_La(const Par &par) const
{
    const QByteArray guardado = c_.grupo.Cartao(par.IDContacto);
    if (!guardado.isEmpty() && Resumo_Do_Cartao(guardado) == par.resumo)
        if (const auto pessoa = Pessoa_Do_Cartao(guardado, c_.idioma)) return pessoa->lido.colunas;
    return par.acordo;
}

void RecepcaoDeCartoes::Existente(const Chegada &chegada, int ID, const GrupoLocal::Linha &linha,
                                  const Par *par)
{
    TresVersoes versoes{linha.colunas, {}, chegada.pessoa.lido.colunas, {}};
    if (par != nullptr) {
        versoes.aqui_antes = par->acordo;
        versoes.la_antes = Como_Era_La(*par);
    }
    const JuntosDosTres juntos = Juntar_Os_Tres(versoes, c_.idioma);
    const bool saiu_do_grupo = !c_.grupo.E_Deste_Grupo(linha);
    const bool muda = saiu_do_grupo || !Dizem_O_Mesmo(juntos.colunas, linha.colunas);
    if (muda && !c_.circunstancias.editar) {
        const Par sem_acordo{chegada.href, ID, {}, {}, {}, {}};
        return Reter(chegada, par == nullptr ? &sem_acordo : par);
    }

    if (par != nullptr && par->href != chegada.href) c_.pares.Eliminar(QString(par->href));
    if (muda) c_.grupo.Actualizar(ID, linha, juntos.colunas, chegada.pessoa);
    c_.grupo.Guardar_Cartao(ID, UID_De(chegada, ID), chegada.texto);
    c_.pares.Guardar({chegada.href, ID, chegada.etag, Par::Acordado, chegada.resumo, juntos.acordo});
    const QString &nome = juntos.colunas[Coluna::Nome];
    if (saiu_do_grupo) c_.Apontar({Ocorrencia::EliminadoAqui, ID, nome, {}, {}, {}, {}});
    Apontar_Conflitos(ID, nome, juntos.conflitos);
    if (muda) ++c_.resultado.alterados;
}

QString RecepcaoDeCartoes::UID_De(const Chegada &chegada, int ID) const
{
    return chegada.pessoa.UID.isEmpty() ? c_.grupo.UID(ID) : chegada.pessoa.UID;
}

void RecepcaoDeCartoes::Apontar_Conflitos(int ID, const QString &nome,
                                          const std::vector<ConflitoDeColuna> &conflitos)
{
    for (const ConflitoDeColuna &conflito : conflitos) {
        const char *coluna = ColunasDoContacto::na_tabela.at(static_cast<std::size_t>(conflito.coluna));
        c_.Apontar(
            {Ocorrencia::Conflito, ID, nome, QString::fromLatin1(coluna), conflito.aqui, conflito.la, {}});
        ++c_.resultado.conflitos;
    }
}

// The mark is not remembered: at the next run the card is asked for again, if the user may have it then.
void RecepcaoDeCartoes::Reter(const Chegada &chegada, const Par *par)
{
    Par retido = par == nullptr ? Par{chegada.href, 0, {}, {}, {}, {}} : *par;
    if (retido.href != chegada.href) c_.pares.Eliminar(retido.href);
    retido.href = chegada.href;
    retido.estado = Par::Retido;
    c_.pares.Guardar(retido);
    c_.Apontar({Ocorrencia::SemDireito,
                retido.IDContacto,
                chegada.pessoa.lido.colunas[Coluna::Nome],
                {},
                {},
                {},
                {}});
    ++c_.resultado.retidos;
}

// Whose card it is, of those in the group that no card goes with; 0 for nobody's.
int RecepcaoDeCartoes::Emparelhar(const Chegada &chegada, std::optional<Par> &antigo)
{
    int ID = 0;
    const auto do_uid = chegada.pessoa.UID.isEmpty() ? por_uid_.end() : por_uid_.find(chegada.pessoa.UID);
    if (do_uid != por_uid_.end()) {
        const Par *outro = c_.pares.De_Contacto(do_uid->second);
        if (outro != nullptr && c_.sumidos.contains(outro->href)) {
            antigo = *outro;
            return do_uid->second;
        }
        if (c_.livres.contains(do_uid->second)) ID = do_uid->second;
    }
    if (ID == 0) ID = Pela_Regra(chegada);
    c_.livres.erase(ID);
    return ID;
}

int RecepcaoDeCartoes::Pela_Regra(const Chegada &chegada)
{
    if (c_.livres.empty()) return 0;
    if (!regra_) {
        regra_.emplace(c_.idioma);
        for (const auto &[ID, colunas] : c_.livres) {
            regra_->Juntar(colunas);
            lugares_.push_back(ID);
        }
    }
    const Decisao decisao = regra_->Decidir(chegada.pessoa.lido.colunas);
    if (decisao.veredicto != Veredicto::Igual && decisao.veredicto != Veredicto::Completa) return 0;
    const int ID = lugares_.at(decisao.quem.front());
    return c_.livres.contains(ID) ? ID : 0;
}
