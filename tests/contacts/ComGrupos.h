// The main window with its groups, and what the tests of the group forms ask of it.
#pragma once

#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"

struct ComGrupos : ComJanela {
    // IDs of the groups of a first run, in the order of their names.
    enum { Amigos = 1, Clientes = 4, Colegas = 2, Familia = 3, Fornecedores = 5, Outros = 6 };

    // The group filter, without its first row.
    QStringList Filtro() const
    {
        QStringList grupos;
        for (int i = 1; i < janela.ComboGrupos->ListCount(); ++i)
            grupos << janela.ComboGrupos->List(i);
        return grupos;
    }

    QStringList Nomes() const
    {
        QStringList nomes;
        for (int i = 0; i < janela.ListaNomes->ListCount(); ++i)
            nomes << janela.ListaNomes->List(i);
        return nomes;
    }

    int Contacto(const QString &nome, int grupo)
    {
        return s.Novo_Contacto({{QStringLiteral("Nome"), nome}, {QStringLiteral("Grupo"), grupo}});
    }

    QString Grupo_Do_Contacto(int id)
    {
        return s.Linhas(QStringLiteral("SELECT Grupo FROM TblLista WHERE ID=%1").arg(id)).join(u',');
    }

    QStringList Grupos()
    {
        return s.Linhas(QStringLiteral("SELECT ID, NomeGrupo, IdUtilizador FROM TblGrupos ORDER BY ID"));
    }

    // Nothing of the groups may change while one of these lives.
    class Intactos
    {
    public:
        explicit Intactos(ComGrupos &grupos) : grupos_(grupos), antes_(Retrato()) {}
        ~Intactos()
        {
            QTest::qCompare(Retrato(), antes_, "groups and contacts", "as before", __FILE__, __LINE__);
        }
        Intactos(const Intactos &) = delete;
        Intactos &operator=(const Intactos &) = delete;

    private:
        QStringList Retrato()
        {
            return grupos_.Grupos() + grupos_.s.Linhas(QStringLiteral("SELECT * FROM TblLista ORDER BY ID"));
        }

        ComGrupos &grupos_;
        QStringList antes_;
    };

    // The row of that ID, chosen as a person would.
    static void Escolher(ComboBox &combo, int id)
    {
        for (int i = 0; i < combo.ListCount(); ++i)
            if (combo.ItemData(i) == id) return combo.setListIndex(i);
        QTest::qFail(qPrintable(QStringLiteral("no row %1 in ").arg(id) + combo.objectName()), __FILE__,
                     __LINE__);
    }

    // A box in front of the form, which then still stands.
    template<class Formulario> void Ouvir(Formulario &form, int texto, int titulo)
    {
        s.caixas.Espera(s.Texto(texto), 16, s.Texto(titulo));
        form.show();
        form.cmdOk->click();
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
    }

    template<class Formulario> void Confirmar(Formulario &form)
    {
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

    bool Temporizadores_Ligados() const
    {
        const Temporizadores &t = s.geral.temporizadores;
        return t.timerTarefas.Enabled() && t.timerPonto.Enabled();
    }

    // The form stops the timers when it loads and lets them run when it unloads.
    template<class Formulario> void Verificar_Temporizadores(Formulario &form)
    {
        const Temporizadores &t = s.geral.temporizadores;
        QSignalSpy iniciar_mail(&t, &Temporizadores::IniciarMail);
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!form.isVisible());
        QVERIFY(t.timerTarefas.Enabled() && t.timerPonto.Enabled());
        QCOMPARE(iniciar_mail.count(), 1);
    }

    // Without the right the menu entry answers with the refusal alone; with it the form comes, in front of a
    // disabled window.
    template<class Formulario> void Verificar_Entrada(QAction &entrada)
    {
        janela.setWindowTitle(QStringLiteral("Morvex 1.0 Ana"));
        QVERIFY(entrada.isEnabled());
        s.geral.SessaoActual.Grupos = false;
        s.caixas.Espera(s.Texto(102), 16, QStringLiteral("Morvex"));
        entrada.trigger();
        QVERIFY(s.caixas.Todas_Vistas());

        s.geral.SessaoActual.Grupos = true;
        bool veio = false;
        accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
            veio = true;
            QVERIFY(!janela.isEnabled());
            QVERIFY(form.isEnabled());
            form.cmdCancelar->click();
        });
        entrada.trigger();
        QVERIFY(veio);
        QVERIFY(janela.isEnabled());
    }
};
