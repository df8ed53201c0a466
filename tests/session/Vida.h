// One life of the program on an installation: from its start, through the login where there is one, to its
// end.
#pragma once

#include "contacts/ListaContactos.h"
#include "session/frmLogin.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

class Vida
{
public:
    // Without a name nobody is asked: a login that comes then fails the test.
    explicit Vida(Sistema &s, const QString &nome = QString(), const QString &senha = QString())
        : geral(s.Pasta()), janela(geral, s.plataforma)
    {
        if (!nome.isEmpty())
            accoes::Quando_Abrir<frmLogin>([&](frmLogin &login) {
                login.txtUser->setText(nome);
                login.txtPass->setText(senha);
                login.cmdOk->click();
                if (login.isVisible()) login.close(); // refused: the test has heard of it
            });
        janela.Carregar();
    }

    // The contacts of a row of the group filter, in order.
    QStringList Contactos(int linha = 0)
    {
        janela.ComboGrupos->setListIndex(linha);
        QStringList nomes;
        for (int i = 0; i < janela.ListaNomes->ListCount(); ++i)
            nomes << janela.ListaNomes->List(i);
        nomes.sort();
        return nomes;
    }

    // The groups of the filter, without its first row.
    QStringList Grupos()
    {
        QStringList grupos;
        for (int i = 1; i < janela.ComboGrupos->ListCount(); ++i)
            grupos << janela.ComboGrupos->List(i);
        grupos.sort();
        return grupos;
    }

    // A command of the menu whose form is answered so.
    template<class Formulario> void Fazer(QAction &entrada, const std::function<void(Formulario &)> &resposta)
    {
        bool veio = false;
        accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
            veio = true;
            resposta(form);
            QVERIFY(!form.isVisible());
        });
        entrada.trigger();
        QVERIFY(veio);
    }

    Geral geral;
    Main janela;
};
