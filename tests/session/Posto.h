// The window of one desk over a server that others share, with fifty contacts in it.
#pragma once

#include "memos/frmMemo.h"
#include "session/Arranque.h"
#include "session/AvisosDosPostos.h"
#include "testlib/ComJanela.h"
#include "testlib/Disparar.h"
#include "testlib/ServidorFalso.h"

#include <QPlainTextEdit>

struct Posto {
    Posto()
    {
        s.Escrever(QStringLiteral("DELETE FROM TblLista"));
        for (int i = 10; i < 60; ++i)
            ids << s.Novo_Contacto({{QStringLiteral("Nome"), QStringLiteral("Nome %1").arg(i)},
                                    {QStringLiteral("Obs"), QStringLiteral("linha\n").repeated(60)}});
        servidor.Servir(s.geral);
        janela.Inicio().Executar();
        avisos.Comecar();
        janela.show();
        QVERIFY(QTest::qWaitForWindowExposed(&janela));
        servidor.Esquecer();
    }
    ~Posto()
    {
        for (QWidget *nota : QApplication::topLevelWidgets())
            if (qobject_cast<frmMemo *>(nota) != nullptr) nota->hide();
    }

    // The 0.3 seconds go by.
    void Recolher()
    {
        if (avisos.TimerRecolha.Enabled()) Disparar(avisos.TimerRecolha);
    }
    // What another desk has done reaches this one.
    void Muda(const QString &sql, const QString &tabela, StoreChange::What que, const QList<int> &mudados)
    {
        s.Escrever(sql);
        servidor.Mudou(tabela, que, mudados);
        Recolher();
    }
    int Linha(int id) const
    {
        for (int i = 0; i < lista.ListCount(); ++i)
            if (lista.ItemData(i) == id) return i;
        return -1;
    }
    QString Obs() const { return janela.txtObs->toPlainText(); }

    Sistema s;
    ServidorFalso servidor{s.Base()};
    QList<int> ids;
    Main janela{s.geral, s.plataforma};
    AvisosDosPostos &avisos = *janela.findChild<AvisosDosPostos *>();
    ListBox &lista = *janela.ListaNomes;
};

// The forms of that class that are to be seen.
template<class Formulario> QList<Formulario *> Abertos()
{
    QList<Formulario *> abertos;
    for (QWidget *janela : QApplication::topLevelWidgets())
        if (auto *um = qobject_cast<Formulario *>(janela); um != nullptr && um->isVisible()) abertos << um;
    return abertos;
}
