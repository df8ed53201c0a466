// The merge of an older database into the current one: its contacts, its tasks and its memos, with groups and
// users matched by name. Only ever adds. A step that fails is skipped, and what it would have read keeps the
// value of the row before.
#pragma once

#include "data/Comandos.h"
#include "data/LinhasJaVindas.h"
#include "interchange/GruposPorNome.h"

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <QObject>
#include <QString>
#include <string>

class DE2;
class Geral;
class Recordset;

class Fusao final : public QObject
{
    Q_OBJECT
public:
    // How many rows each pass expects, for the progress.
    struct Totais {
        qint16 Contactos = 0;
        qint16 Tarefas = 0;
        qint16 Memos = 0;
    };

    // What became of the rows of a pass.
    struct Contagem {
        int Lidos = 0;     // of the source
        int Recusados = 0; // rows with a value that its column doesn't take: they are skipped
        int Guardados = 0; // in the file, or on the server by now
        bool Completa() const { return Guardados >= Lidos - Recusados; }
    };

    Fusao(Geral &geral, DE2 &de2, const Totais &totais);

    // Runs the three passes. What they added is in the file when it returns. A lock that somebody has on the
    // database is waited for once. What came to a server by an earlier merge that was not complete does not
    // come twice.
    void Correr();

    // Of the contacts, the tasks and the memos.
    const std::array<Contagem, 3> &Contagens() const { return contagens_; }
    // Whether the database took all rows but those that their columns refuse.
    bool Completa() const;

    // A line for each group and user that had to be created.
    const QString &Relatorio() const { return relatorio_; }

Q_SIGNALS:
    void Progresso(int percentagem);
    void ContactosLidos();
    void TarefasLidas();
    void MemosLidos();

private:
    // The values of a pass by column, as text. They are not cleared between rows.
    using Valores = std::map<std::string, QString>;

    void Passagens();
    void Nada_Veio();
    void Passar(Contagem &contagem, int total, ComandoSemLinhas comando,
                const std::function<void(Contagem &)> &passagem);
    bool Ja_Veio(Contagem &contagem, const QString &especie, const Recordset &linha);
    void Passar_Contactos(Contagem &contagem);
    void Adicionar_Contacto(Valores &v);
    void Trazer_Fotografia(const QString &Fotografia);
    void Trazer_Contacto(const QString &antigo, Valores &v);
    void Passar_Tarefas(Contagem &contagem);
    void Passar_Memos(Contagem &contagem);

    bool Trazer_Grupo(Valores &v);
    void Esquecer_O_Desfeito();
    bool Procurar_Grupo(const QString &nome, std::optional<QString> &ID);
    bool Trazer_Utilizador(const Recordset &linha, Valores &v,
                           const std::optional<QString> &nome_das_definicoes);
    bool Criar_Utilizador(const Valores &v, const QString &nome_das_definicoes);
    bool Criar(const std::function<void()> &criar, qint16 texto, const QString &nome);
    static void Guardar(Contagem &contagem, const std::function<void()> &inserir);
    void Contar(const Contagem &contagem, qint16 total);

    Geral &geral_;
    DE2 &de2_;
    Totais totais_;
    std::array<Contagem, 3> contagens_;
    std::optional<LinhasJaVindas> vindas_;
    GruposPorNome grupos_daqui_;
    struct Grupo {
        QString Nome;
        QString ID; // here
    };
    std::map<QString, Grupo> grupos_; // those found so far, by their old ID
    int desfeitas_ = 0;               // portions that were undone before those were found
    QString relatorio_;
    QString ultimo_utilizador_das_tarefas_;
    QString IdUtilizador_; // of the owner, the old one until the new one is found; both passes share it
};
