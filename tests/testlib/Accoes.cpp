#include "testlib/Accoes.h"

#include "testlib/Teste.h"

namespace
{
constexpr int espera = 10;      // ms between two looks
constexpr int paciencia = 5000; // ms altogether

void Esperar(const std::function<void(QWidget &)> &accao, int resta)
{
    if (QWidget *janela = QApplication::activeModalWidget()) return accao(*janela);
    if (resta <= 0) return QTest::qFail("no modal form came", __FILE__, __LINE__);
    QTimer::singleShot(espera, qApp, [accao, resta] { Esperar(accao, resta - espera); });
}
} // namespace

void accoes::Quando_Abrir_Qualquer(const std::function<void(QWidget &)> &accao)
{
    QTimer::singleShot(0, qApp, [accao] { Esperar(accao, paciencia); });
}

namespace teste
{
CaixasFalsas *caixas_actuais = nullptr;

int CaixasDaAplicacao::show(const QString &text, int flags, const QString &title, QWidget *owner)
{
    if (caixas_actuais != nullptr) return caixas_actuais->show(text, flags, title, owner);
    QTest::qFail(qUtf8Printable(text), __FILE__, __LINE__);
    return answer::no;
}

void CaixasDaAplicacao::showError(const Failure &failure)
{
    if (caixas_actuais != nullptr) return caixas_actuais->showError(failure);
    QTest::qFail(failure.what(), __FILE__, __LINE__);
}
} // namespace teste
