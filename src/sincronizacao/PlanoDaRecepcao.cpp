#include "sincronizacao/PlanoDaRecepcao.h"

#include "carddav/RemoteBook.h"
#include "sincronizacao/JuncaoDeTres.h"

#include <QHash>

namespace
{
class Planeador
{
public:
    Planeador(CorridaEmCurso &corrida, const RemoteChanges &mudancas)
        : c_(corrida), mudancas_(mudancas), removidos_(mudancas.removed.begin(), mudancas.removed.end())
    {
        for (const RemoteMember &membro : mudancas.changed)
            mudados_.insert(membro.href, membro.etag);
        c_.livres = c_.grupo.Todos();
    }

    PlanoDaRecepcao Fazer()
    {
        for (const auto &[href, par] : c_.pares.Todos()) {
            Um(par);
            mudados_.remove(href);
        }
        for (const auto &[href, par] : c_.pares.Todos())
            c_.livres.erase(par.IDContacto);
        // One that has no contact may be of one that no card goes with: another account has brought it in.
        (c_.livres.empty() ? plano_.a_reter : plano_.a_pedir) << retidos_sem_contacto_;
        for (const RemoteMember &membro : mudancas_.changed)
            if (mudados_.contains(membro.href)) plano_.a_pedir << membro.href;
        return std::move(plano_);
    }

private:
    bool Ja_La_Nao_Esta(const Par &par) const
    {
        return removidos_.contains(par.href) || (mudancas_.whole && !mudados_.contains(par.href));
    }

    Lado La(const Par &par) const
    {
        if (par.estado == Par::ApagadoRetido && !mudados_.contains(par.href)) return Lado::Apagado;
        if (Ja_La_Nao_Esta(par)) return Lado::Apagado;
        if (par.estado == Par::AEnviar) return mudados_.contains(par.href) ? Lado::Mudado : Lado::Apagado;
        if (par.estado == Par::PorVer || par.estado == Par::Retido) return Lado::Mudado;
        const auto mudado = mudados_.constFind(par.href);
        if (mudado == mudados_.constEnd()) return Lado::Igual;
        return mudado->isEmpty() || *mudado != par.etag ? Lado::Mudado : Lado::Igual;
    }

    Lado Aqui(const Par &par) const
    {
        const auto contacto = c_.livres.find(par.IDContacto);
        if (contacto == c_.livres.end()) return Lado::Apagado;
        return Dizem_O_Mesmo(contacto->second, par.acordo) ? Lado::Igual : Lado::Mudado;
    }

    void Um(const Par &par)
    {
        const Lado la = La(par);
        const Lado aqui = Aqui(par);
        if (la == Lado::Apagado) c_.sumidos.insert(par.href);
        if (par.estado == Par::Ignorado || par.estado == Par::AEnviar) return Sem_Acordo(par, la);
        if (par.IDContacto > 0) ++plano_.acordados;
        Accao accao = Decidir(aqui, la, c_.circunstancias);
        if (par.IDContacto == 0 && la == Lado::Apagado) accao = Accao::Esquecer;
        Por(accao, par, aqui, la);
    }

    // Without an agreement nothing is deleted by it.
    void Sem_Acordo(const Par &par, Lado la)
    {
        if (la == Lado::Mudado) plano_.a_pedir << par.href;
        if (la == Lado::Apagado) plano_.a_largar << par.href;
    }

    void Por(Accao accao, const Par &par, Lado aqui, Lado la)
    {
        switch (accao) {
        case Accao::Receber:
        case Accao::ReceberNovo:
        case Accao::Juntar:
            plano_.a_pedir << par.href;
            break;
        case Accao::ApagarAqui:
            plano_.a_apagar_aqui << par.href;
            break;
        case Accao::EnviarNovo:
            plano_.a_largar << par.href;
            if (aqui == Lado::Mudado) plano_.ganham << par.href;
            break;
        case Accao::Esquecer:
            plano_.a_largar << par.href;
            break;
        case Accao::Reter:
            Reter(par.href, aqui, la);
            break;
        case Accao::Nada:
        case Accao::Enviar:
        case Accao::ApagarLa: // what is to be sent is found once all has been received
            break;
        }
    }

    void Reter(const QString &href, Lado aqui, Lado la)
    {
        if (la == Lado::Apagado)
            plano_.apagados_retidos << href;
        else
            (aqui == Lado::Apagado ? retidos_sem_contacto_ : plano_.a_reter) << href;
    }

    CorridaEmCurso &c_;
    const RemoteChanges &mudancas_;
    QSet<QString> removidos_;
    QHash<QString, QByteArray> mudados_;
    PlanoDaRecepcao plano_;
    QStringList retidos_sem_contacto_;
};
} // namespace

PlanoDaRecepcao Planear_A_Recepcao(CorridaEmCurso &corrida, const RemoteChanges &mudancas)
{
    return Planeador(corrida, mudancas).Fazer();
}
