// Writes what was decided about an import: all of it or nothing, so that no end of the program, no full disk
// and nobody else's lock leaves half of it. Takes it back again, as long as it lives.
#pragma once

#include "cards/ImportacaoDeContactos.h"
#include "cards/LinhaDaAgenda.h"
#include "data/FeitoPorSaber.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <QSet>

// The numbers of contacts end: so many more have one.
struct NaoCabem : std::exception {
    explicit NaoCabem(qint64 quantos) : cabem(quantos) {}
    qint64 cabem;
};
// The group for those that name none is not there any more.
struct GrupoDesaparecido : std::exception {
};

class EscritaDaImportacao
{
public:
    struct Pedido {
        QString IdUtilizador;
        QString IDGrupo; // for those that name no group
        bool criar_grupos = false;
    };
    // Of the contacts of the file; together they are all.
    struct Contagem {
        int adicionados = 0;
        int completados = 0;
        int saltados = 0;
    };

    // The import must not change as long as this lives.
    EscritaDaImportacao(DE &de, const ImportacaoDeContactos &importacao, Pedido pedido);

    // What it would do, for the rights that it needs.
    Contagem Prevista() const;

    // The progress in percent; false from it takes everything back. False where it did. Raises Failure, and
    // the two above, and nothing is written then, but where it stays in doubt. What turns out to have been
    // written after all is not written once more.
    using Progresso = std::function<bool(int)>;
    bool Escrever(const Progresso &progresso);
    // Whether it was written, or may have been, though a server went away over it.
    bool Em_Duvida() const { return escrita_.Em_Duvida(); }

    const Contagem &Feita() const { return contagem_; }
    const QStringList &GruposCriados() const { return nomes_dos_grupos_; }

    // Everything that was added goes, and everything that was completed is as it was before; what somebody
    // has changed meanwhile stays. All of it or nothing: raises Failure.
    void Anular();

private:
    struct Novo { // to be added
        std::size_t contacto;
        std::unique_ptr<ColunasDoContacto> completado; // by another one of the file; null: as it came
    };
    struct Existente { // in the book
        QString ID;
        LinhaDaAgenda antes;
        ColunasDoContacto colunas;
        std::optional<std::size_t> contacto; // whose card is kept with it
        QByteArray cartao_antes;             // the kept one
        QString uid_antes;
        bool tinha_cartao = false;
    };
    struct Destino {
        enum { Nenhum, Novos, Existentes } onde = Nenhum;
        std::size_t qual = 0;
    };

    void Tudo(const Progresso &progresso);
    void Planear(const std::function<void()> &passo);
    std::optional<LinhaDaAgenda> Ler_Da_Agenda(const QString &ID);
    Destino Destino_De(const ContactoAImportar &contacto, const std::vector<Destino> &destinos);
    Destino Existente_Com(const QString &ID);
    Destino Tomar(const QString &ID, LinhaDaAgenda linha);
    void Tomar_Existentes(const std::function<void()> &olhar);
    const ColunasDoContacto &Colunas_De(const Novo &novo) const;
    void Acrescentar(std::size_t qual, const Destino &destino);
    void Verificar();
    void Preparar_Grupos();
    QString Grupo_De(const QString &nome);
    void Inserir(const Novo &novo);
    void Actualizar(Existente &existente);
    void Guardar_Cartao(const QString &ID, const ContactoDaFonte &fonte);
    void Guardar_Fotografia(const QString &nome);
    void Repor(const Existente &existente);
    void Esquecer();

    DE &de_;
    const ImportacaoDeContactos &importacao_;
    Pedido pedido_;
    FeitoPorSaber escrita_;
    FeitoPorSaber anulacao_;
    Contagem contagem_;
    std::vector<Novo> novos_;
    std::vector<Existente> existentes_;
    QHash<QString, std::size_t> existente_por_ID_;
    QHash<QString, std::size_t> fotografias_; // by their name: the contact whose card holds it
    QHash<QString, QString> grupos_;          // ID by the folded name, those that the user sees
    QStringList grupos_criados_;              // IDs
    QStringList nomes_dos_grupos_;
    QSet<QString> fotografias_novas_;
    QSet<QString> com_cartao_;               // the contacts that have a kept one
    std::optional<LugaresDaAgenda> lugares_; // in the rows of the contacts that are completed
    qint64 ultimo_antes_ = 0;
    qint64 ultimo_ = 0;
    qint64 ultimo_grupo_antes_ = 0;
};
