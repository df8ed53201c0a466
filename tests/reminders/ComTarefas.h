// An installation with tasks of the test's own, a stand-in for the main window, and a look at what was
// written.
#pragma once

#include "testlib/Accoes.h"
#include "testlib/Disparar.h"
#include "testlib/RelatorioFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QApplication>
#include <QWidget>

struct ComTarefas {
    explicit ComTarefas(const QString &idioma = QStringLiteral("PortuguesPT"))
        : s(Sistema::Estado::Semeado, idioma)
    {
    }

    // "dd-mm-yyyy hh:mm", by the wall clock.
    void Agora(const QString &momento)
    {
        s.relogio.Acertar(QDateTime::fromString(momento, QStringLiteral("dd-MM-yyyy HH:mm")));
    }

    // A task with the repetition's ID in digits. Returns its own ID.
    int Nova(const QString &Tarefa, const QString &Data, const QString &Hora,
             const QString &IDRepeticao = QStringLiteral("1"),
             const QString &Utilizador = QStringLiteral("0"))
    {
        s.geral.de.Executar("cmdAdicionarTarefa", {Tarefa, Data, Hora, Utilizador, IDRepeticao});
        return s.Ultimo_Id(QStringLiteral("TblTarefas"));
    }

    // "Tarefa|yyyy-mm-dd|hh:mm:ss|IDRepeticao" a task, in the order of their IDs.
    QStringList Tarefas()
    {
        return s.Linhas(QStringLiteral("SELECT Tarefa, Data, Hora, IDRepeticao FROM TblTarefas ORDER BY ID"));
    }

    bool Temporizadores_Ligados() const
    {
        const Temporizadores &t = s.geral.temporizadores;
        return t.timerTarefas.Enabled() && t.timerPonto.Enabled();
    }
    bool Temporizadores_Parados() const
    {
        const Temporizadores &t = s.geral.temporizadores;
        return !t.timerTarefas.Enabled() && !t.timerPonto.Enabled();
    }

    // The database cannot be read any more, as if its file lay on a network that is gone.
    void Perder(const QString &tabela)
    {
        s.Escrever(QStringLiteral("ALTER TABLE %1 RENAME TO Perdida").arg(tabela));
    }
    void Recuperar(const QString &tabela)
    {
        s.Escrever(QStringLiteral("ALTER TABLE Perdida RENAME TO %1").arg(tabela));
    }

    Sistema s;
    RelatorioFalso relatorio; // the alert card's
    QWidget janela;
};

// How often a window was brought in front of the others.
class Subidas final : public QObject
{
public:
    explicit Subidas(QWidget &janela) { janela.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *evento) override
    {
        if (evento->type() == QEvent::ZOrderChange) ++vezes;
        return false;
    }

    int vezes = 0;
};

// The form of that class that stands open; null when there is none.
template<class Formulario> Formulario *Aberto()
{
    for (QWidget *janela : QApplication::topLevelWidgets())
        if (auto *formulario = qobject_cast<Formulario *>(janela)) return formulario;
    return nullptr;
}
