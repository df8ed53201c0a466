#include "contacts/DesfazerEliminacao.h"

#include "contacts/ListaContactos.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <algorithm>

namespace
{
// clang-format off
constexpr Translations noutro_grupo{
    u"O grupo «%1» já não está disponível. O contacto voltou para o grupo «%2».",
    u"O grupo «%1» não está mais disponível. O contato voltou para o grupo «%2».",
    u"The group “%1” is no longer available. The contact came back into the group “%2”.",
    u"El grupo «%1» ya no está disponible. El contacto ha vuelto al grupo «%2».",
    u"Il gruppo «%1» non è più disponibile. Il contatto è tornato nel gruppo «%2».",
    u"Le groupe « %1 » n’est plus disponible. Le contact est revenu dans le groupe « %2 ».",
    u"Die Gruppe „%1“ ist nicht mehr verfügbar. Der Kontakt ist jetzt in der Gruppe „%2“."};
constexpr Translations ficou_junto{
    u"O contacto com que tinha sido juntado foi mudado depois, e fica como está.",
    u"O contato com que tinha sido juntado foi mudado depois, e fica como está.",
    u"The contact that it had been merged with was changed since, and stays as it is.",
    u"El contacto con el que se había juntado ha cambiado después, y queda como está.",
    u"Il contatto con cui era stato unito è cambiato in seguito, e resta com’è.",
    u"Le contact avec lequel il avait été fusionné a changé depuis et reste tel quel.",
    u"Der Kontakt, mit dem er zusammengeführt worden war, wurde seither geändert und bleibt, wie er ist."};
constexpr Translations sem_grupo{
    u"Não há nenhum grupo para o qual o contacto possa voltar. Crie um grupo e tente outra vez.",
    u"Não há nenhum grupo para o qual o contato possa voltar. Crie um grupo e tente de novo.",
    u"There is no group that the contact could come back into. Create a group and try again.",
    u"No hay ningún grupo al que pueda volver el contacto. Cree un grupo e inténtelo de nuevo.",
    u"Non c’è alcun gruppo in cui il contatto possa tornare. Creare un gruppo e riprovare.",
    u"Il n’y a aucun groupe dans lequel le contact puisse revenir. Créez un groupe, puis réessayez.",
    u"Es gibt keine Gruppe, in die der Kontakt zurückkommen könnte. Legen Sie eine Gruppe an und versuchen Sie es noch einmal."};
constexpr Translations numero_ocupado{
    u"O número do que foi eliminado pertence agora a outro registo. Repor com um número novo?",
    u"O número do que foi excluído pertence agora a outro registro. Restaurar com um número novo?",
    u"The number of what was deleted now belongs to another record. Bring it back with a new number?",
    u"El número de lo que se eliminó pertenece ahora a otro registro. ¿Recuperarlo con un número nuevo?",
    u"Il numero di ciò che è stato eliminato appartiene ora a un altro record. Ripristinarlo con un numero nuovo?",
    u"Le numéro de ce qui a été supprimé appartient maintenant à un autre enregistrement. Le rétablir avec un nouveau numéro ?",
    u"Die Nummer des Gelöschten gehört jetzt zu einem anderen Eintrag. Mit einer neuen Nummer wiederherstellen?"};
// clang-format on
} // namespace

DesfazerEliminacao::DesfazerEliminacao(Janela &janela, Geral &geral, Platform &platform,
                                       ListaContactos &lista)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      lista_(lista),
      lugar_(janela, geral, lista)
{
    connect(janela.DesfazerEliminar, &QAction::triggered, this, &DesfazerEliminacao::DesfazerEliminar_Click);
    connect(janela.Contactos, &QMenu::aboutToShow, this, &DesfazerEliminacao::Permitir);
}

void DesfazerEliminacao::Eliminar_Contacto(const QString &ID, const std::function<void()> &eliminar)
{
    Guardar([&] { return Retrato_Do_Contacto(geral_, ID); }, eliminar);
}

void DesfazerEliminacao::Eliminar_Grupo(const QString &ID, const QString &destino,
                                        const std::function<void()> &eliminar)
{
    Guardar([&] { return Retrato_Do_Grupo(geral_, ID, destino); }, eliminar);
}

// What can't be read can still be deleted.
void DesfazerEliminacao::Guardar(const std::function<Eliminacao()> &retrato,
                                 const std::function<void()> &eliminar)
{
    Fazer([&](Eliminacao &eliminacao) {
        skipFailure([&] { eliminacao = retrato(); });
        eliminar();
    });
}

// Two contacts are not made one unless they can be made two again.
void DesfazerEliminacao::Juntar_Contactos(const QString &IDQueFica, const QString &IDQueVai,
                                          const std::function<void()> &juntar)
{
    Fazer([&](Eliminacao &eliminacao) {
        eliminacao = Retrato_Do_Contacto(geral_, IDQueVai);
        Juncao juncao = Antes_De_Juntar(geral_.de, IDQueFica);
        juntar();
        Depois_De_Juntar(geral_.de, juncao);
        eliminacao.juncao = std::move(juncao);
    });
}

// In one transaction, so that nothing goes unseen. One whose answer was lost is kept until it is known whether
// there is anything to bring back.
void DesfazerEliminacao::Fazer(const std::function<void(Eliminacao &)> &trabalho)
{
    const auto feita = pilha_.emplace(pilha_.end(), geral_.de);
    try {
        feita->eliminar.Correr([&] { trabalho(feita->eliminacao); });
    } catch (...) {
        if (feita->Sem_Nada() || !feita->eliminar.Em_Duvida()) pilha_.erase(feita);
        Permitir();
        throw;
    }
    if (feita->Sem_Nada()) { // somebody else was first
        pilha_.erase(feita);
        return;
    }
    Permitir();
    Q_EMIT Eliminado();
}

// Of the user at the keyboard: nobody brings back another's.
DesfazerEliminacao::Pilha::iterator DesfazerEliminacao::Ultima()
{
    pilha_.remove_if([](const Feita &feita) { return feita.eliminar.Nao_Chegou(); });
    const auto sua = std::find_if(pilha_.rbegin(), pilha_.rend(), [this](const Feita &feita) {
        return feita.eliminacao.IdUtilizador == geral_.SessaoActual.IdUtilizador;
    });
    return sua == pilha_.rend() ? pilha_.end() : std::prev(sua.base());
}

void DesfazerEliminacao::Permitir() { janela_.DesfazerEliminar->setEnabled(Ultima() != pilha_.end()); }

// A failure leaves the deletion where it is, for another try.
void DesfazerEliminacao::DesfazerEliminar_Click()
{
    const auto ultima = Ultima();
    if (ultima == pilha_.end() || !Pode_Desfazer(ultima->eliminacao)) return Permitir();
    const auto reposto = Trazer(*ultima);
    if (!reposto) return;
    pilha_.erase(ultima);
    Permitir();
    Mostrar(*reposto);
}

// Whoever may delete may bring back.
bool DesfazerEliminacao::Pode_Desfazer(const Eliminacao &eliminacao)
{
    const Sessao &sessao = geral_.SessaoActual;
    return Tem_Direito(eliminacao.vai_o_grupo ? sessao.Grupos : sessao.Eliminar, geral_, platform_, &janela_);
}

std::optional<Reposto> DesfazerEliminacao::Trazer(Feita &feita)
{
    try {
        try {
            return Repor(geral_, feita.eliminacao, Numero::OMesmo, feita.repor);
        } catch (const NumeroOcupado &) {
            if (Dizer(numero_ocupado, box::question | box::yesNo) != answer::yes) return std::nullopt;
        }
        return Repor(geral_, feita.eliminacao, Numero::NovoOndeOcupado, feita.repor);
    } catch (const SemGrupo &) {
        Dizer(sem_grupo, box::stop);
        return std::nullopt;
    }
}

// A contact with its card; a group alone in the filter, with the first of its contacts.
void DesfazerEliminacao::Mostrar(const Reposto &reposto)
{
    if (!reposto.ID.isEmpty()) {
        lugar_.Mostrar(reposto.ID.toInt(), reposto.IDGrupo);
        return Avisar(reposto);
    }
    lista_.Refrescar();
    for (int i = 0; i < janela_.ComboGrupos->ListCount(); ++i)
        if (janela_.ComboGrupos->ItemData(i) == reposto.IDGrupo.toInt()) janela_.ComboGrupos->setListIndex(i);
    if (janela_.ListaNomes->ListCount() > 0) janela_.ListaNomes->setListIndex(0);
}

void DesfazerEliminacao::Avisar(const Reposto &reposto)
{
    if (reposto.noutro_grupo)
        Dizer(noutro_grupo, box::information, {reposto.grupo_em_falta, reposto.outro_grupo});
    if (reposto.ficou_junto) Dizer(ficou_junto, box::information);
}

int DesfazerEliminacao::Dizer(const Translations &palavras, int flags, const QStringList &nomes)
{
    QString texto = translated(palavras, spokenLanguage(geral_.IdiomaActual));
    if (nomes.size() == 2) texto = texto.arg(nomes[0], nomes[1]);
    return platform_.boxes.show(texto, flags, janela_.windowTitle(), &janela_);
}
