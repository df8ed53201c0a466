#include "sincronizacao/CorridaEmCurso.h"

#include "data/Geral.h"
#include "platform/Clock.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
QString Chave(const Ocorrencia &ocorrencia)
{
    return QString::number(ocorrencia.que) + u' ' + QString::number(ocorrencia.IDContacto) + u' ' +
           ocorrencia.Nome + u' ' + ocorrencia.Campo;
}

bool Repete_Se(Ocorrencia::Que que)
{
    return que != Ocorrencia::Conflito && que != Ocorrencia::EliminadoLa && que != Ocorrencia::EliminadoAqui;
}
} // namespace

ParesEmMao::ParesEmMao(MemoriaDaSincronizacao &memoria) : memoria_(memoria)
{
    for (Par &par : memoria.Pares()) {
        if (par.IDContacto > 0) hrefs_[par.IDContacto] = par.href;
        const QString href = par.href;
        pares_.insert_or_assign(href, std::move(par));
    }
}

const Par *ParesEmMao::De_Href(const QString &href) const
{
    const auto achado = pares_.find(href);
    return achado == pares_.end() ? nullptr : &achado->second;
}

const Par *ParesEmMao::De_Contacto(int ID) const
{
    const auto achado = hrefs_.find(ID);
    return achado == hrefs_.end() ? nullptr : De_Href(achado->second);
}

void ParesEmMao::Guardar(const Par &par)
{
    memoria_.Guardar(par);
    if (const Par *antes = De_Href(par.href)) hrefs_.erase(antes->IDContacto);
    if (par.IDContacto > 0) hrefs_[par.IDContacto] = par.href;
    pares_.insert_or_assign(par.href, par);
}

void ParesEmMao::Eliminar(const QString &href)
{
    memoria_.Eliminar_Par(href);
    const auto achado = pares_.find(href);
    if (achado == pares_.end()) return;
    const auto contacto = hrefs_.find(achado->second.IDContacto);
    if (contacto != hrefs_.end() && contacto->second == achado->first) hrefs_.erase(contacto);
    pares_.erase(achado);
}

CorridaEmCurso::CorridaEmCurso(Geral &g, const Clock &r, int IDGrupo)
    : geral(g),
      relogio(r),
      memoria(g.de, g.SessaoActual.IdUtilizador),
      pares(memoria),
      grupo(g, IDGrupo),
      idioma(g.IdiomaActual),
      IDGrupo_(IDGrupo),
      dos_outros_(memoria.Corridas_Dos_Outros(IDGrupo))
{
    const Sessao &sessao = g.SessaoActual;
    circunstancias = {false, sessao.Adicionar, sessao.Editar, sessao.Eliminar};
    for (const Ocorrencia &ocorrencia : memoria.Ocorrencias())
        if (Repete_Se(ocorrencia.que)) ditas_.insert(Chave(ocorrencia));
}

// Who writes is alone, so nobody begins between the look and the writing.
void CorridaEmCurso::Escrever(const std::function<void()> &trabalho)
{
    geral.de.Tudo_Ou_Nada([&] {
        if (memoria.Estado().Corrida != posse || Outro_Comecou()) throw Ultrapassada();
        trabalho();
    });
}

// Each user's memory is his own, the contacts are the same: what one run has in its hands another one's
// writing makes old. An account that there was not at the beginning counts from none.
bool CorridaEmCurso::Outro_Comecou()
{
    const std::map<QString, int> agora = memoria.Corridas_Dos_Outros(IDGrupo_);
    return std::any_of(agora.begin(), agora.end(), [this](const auto &outro) {
        const auto antes = dos_outros_.find(outro.first);
        return outro.second != (antes == dos_outros_.end() ? 0 : antes->second);
    });
}

void CorridaEmCurso::Apontar(Ocorrencia ocorrencia)
{
    if (Repete_Se(ocorrencia.que)) {
        const QString chave = Chave(ocorrencia);
        if (ditas_.contains(chave)) return;
        ditas_.insert(chave);
    }
    ocorrencia.Quando = relogio.now().toString(Qt::ISODate);
    memoria.Apontar(ocorrencia);
}
