// The way from a group form to the form of a new user and back: the same from both group forms.
#pragma once

#include "ComGrupos.h"
#include "session/frmNovoUser.h"

#include <QTest>

namespace criacao_de_utilizador
{
// Without the right to users the button answers with the refusal; the form stays.
template<class Formulario> void Verificar_Recusa(ComGrupos &g, QAction &entrada)
{
    g.s.geral.SessaoActual.Utilizadores = false;
    bool recusado = false;
    accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
        g.s.caixas.Espera(g.s.Texto(102), 16, QStringLiteral("Morvex"));
        form.cmdCriarUtilizador->click();
        recusado = g.s.caixas.Todas_Vistas() && form.isVisible();
        form.cmdCancelar->click();
    });
    entrada.trigger();
    QVERIFY(recusado);
}

// The button makes a user of that name, the group form being out of sight; then the group form is back and
// that is done to it.
template<class Formulario>
void Criar_E_Voltar(ComGrupos &g, QAction &entrada, const QString &nome,
                    const std::function<void(Formulario &)> &antes,
                    const std::function<void(Formulario &)> &depois)
{
    bool voltou = false;
    accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
        antes(form);
        accoes::Quando_Abrir<frmNovoUser>([&](frmNovoUser &user) {
            QVERIFY(!form.isVisible());
            user.campos->txtUser->setText(nome);
            user.cmdOk->click();
        });
        form.cmdCriarUtilizador->click();
        QVERIFY(form.isVisible());
        QVERIFY(form.isEnabled());
        voltou = true;
        depois(form);
        if (form.isVisible()) form.cmdCancelar->click();
    });
    entrada.trigger();
    QVERIFY(voltou);
    QVERIFY(g.janela.isEnabled());
}
} // namespace criacao_de_utilizador
