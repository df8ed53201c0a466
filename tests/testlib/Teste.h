// The frame of a test program: the application as the product makes it, with boxes that belong to the test.
#pragma once

#include "controls/Application.h"
#include "platform/Failure.h"
#include "testlib/Falsos.h"

#include <QTest>

namespace teste
{
// The boxes of the installation under test; what no handler caught is told to them.
extern CaixasFalsas *caixas_actuais;

class CaixasDaAplicacao final : public MessageBoxes
{
public:
    int show(const QString &text, int flags, const QString &title, QWidget *owner) override;
    void showError(const Failure &failure) override;
};
} // namespace teste

// Passes when the expression raises a Failure of that number.
#define VERIFICAR_FALHA(expressao, numero)                                                                   \
    do {                                                                                                     \
        int falha_vista = 0;                                                                                 \
        try {                                                                                                \
            expressao;                                                                                       \
        } catch (const Failure &falha) {                                                                     \
            falha_vista = falha.number();                                                                    \
        }                                                                                                    \
        QCOMPARE(falha_vista, static_cast<int>(numero));                                                     \
    } while (false)

#define MORVEX_TESTE(Classe)                                                                                 \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        teste::CaixasDaAplicacao caixas;                                                                     \
        Application application(argc, argv, caixas);                                                         \
        Classe testes;                                                                                       \
        return QTest::qExec(&testes, argc, argv);                                                            \
    }
