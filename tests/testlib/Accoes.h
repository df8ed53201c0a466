// What a person does to forms while a test looks on.
#pragma once

#include <functional>
#include <QTest>

namespace accoes
{
// Once a modal form is in front, does that to it. Fails the test if none comes.
void Quando_Abrir_Qualquer(const std::function<void(QWidget &)> &accao);

// The same for a form of one class; another one in front fails the test and is closed.
template<class Formulario> void Quando_Abrir(const std::function<void(Formulario &)> &accao)
{
    Quando_Abrir_Qualquer([accao](QWidget &janela) {
        if (auto *formulario = qobject_cast<Formulario *>(&janela)) return accao(*formulario);
        QTest::qFail(qPrintable("another form came: " + janela.objectName()), __FILE__, __LINE__);
        janela.close();
    });
}
} // namespace accoes
