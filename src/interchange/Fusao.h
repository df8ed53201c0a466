// The merge of an older database into the current one: its contacts, its tasks and its memos, with groups and
// users matched by name. Only ever adds. A step that fails is skipped, and what it would have read keeps the
// value of the row before.
#pragma once

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

    Fusao(Geral &geral, DE2 &de2, const Totais &totais);

    // Runs the three passes. What they added is in the file when it returns.
    void Correr();

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

    void Passar(const std::function<void()> &passagem);
    void Passar_Contactos();
    void Passar_Tarefas();
    void Passar_Memos();

    void Trazer_Grupo(Valores &v);
    void Trazer_Utilizador(const Recordset &linha, Valores &v,
                           const std::optional<QString> &nome_das_definicoes);
    void Criar_Utilizador(const Valores &v, const QString &nome_das_definicoes);
    void Contar(int lidos, qint16 total);

    Geral &geral_;
    DE2 &de2_;
    Totais totais_;
    struct Grupo {
        QString Nome;
        QString ID; // here
    };
    std::map<QString, Grupo> grupos_; // those found so far, by their old ID
    QString relatorio_;
    QString ultimo_utilizador_das_tarefas_;
    QString IdUtilizador_; // of the owner, the old one until the new one is found; both passes share it
};
