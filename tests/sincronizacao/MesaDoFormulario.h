// The window with its form of choices, a server in memory and the ways to it.
#pragma once

#include "sincronizacao/frmPopupSincronizacao.h"
#include "sincronizacao/frmSincronizar.h"
#include "sincronizacao/LivroEmMemoria.h"
#include "testlib/ComJanela.h"

#include <QTest>

struct MesaDoFormulario : ComJanela {
    MesaDoFormulario()
    {
        s.Novo_Utilizador(QStringLiteral("Eva"), QStringLiteral("x"));
        s.Entrar(QStringLiteral("Eva"));
        // The window has one with the real ways; this one stands in its place.
        delete janela.findChild<Sincronizador *>();
        sincronizador = new Sincronizador(janela, s.geral, s.plataforma, Servidores());
        QObject::connect(sincronizador, &Sincronizador::GruposMudados, &lista,
                         &ListaContactos::Carregar_Grupos);
    }

    ServidoresDeLivros Servidores()
    {
        return {
            [this](const QUrl &livro, const RemoteAccount &conta) {
                abertos << livro.toString() + u' ' + conta.user + u'/' + conta.password;
                return std::unique_ptr<RemoteBook>(std::make_unique<LivroEmMemoria>(servidor));
            },
            [this](const QString &endereco, const RemoteAccount &conta, const Discovery::Answer &resposta) {
                procuras << endereco + u' ' + conta.user + u'/' + conta.password;
                auto vivo = std::make_shared<QObject>();
                QTimer::singleShot(0, vivo.get(), [this, resposta] {
                    const RemoteError erro = std::exchange(erro_da_procura, {});
                    resposta(erro, erro ? QList<FoundBook>() : livros);
                });
                return std::shared_ptr<void>(vivo);
            }};
    }

    std::unique_ptr<frmSincronizar> Abrir()
    {
        auto form = std::make_unique<frmSincronizar>(s.geral, s.plataforma, *sincronizador);
        form->show();
        return form;
    }
    // Everything typed, found and chosen.
    std::unique_ptr<frmSincronizar> Preencher()
    {
        auto form = Abrir();
        QTest::keyClicks(form->txtEndereco, QStringLiteral("dav.example"));
        QTest::keyClicks(form->txtUtilizador, QStringLiteral("eva"));
        QTest::keyClicks(form->txtPalavraPasse, QStringLiteral("abcd-12 x"));
        form->cmdEncontrar->click();
        [[maybe_unused]] const bool achou =
            QTest::qWaitFor([&] { return form->ComboLivro->ListCount() > 0; });
        return form;
    }
    void Esperar()
    {
        QVERIFY(QTest::qWaitFor([&] { return !sincronizador->A_Correr(); }));
    }
    frmPopupSincronizacao *Cartao()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *cartao = qobject_cast<frmPopupSincronizacao *>(widget)) return cartao;
        return nullptr;
    }
    void Contas_Ligada(bool arrancar)
    {
        auto form = Preencher();
        form->cbLigada->setChecked(true);
        form->cbArrancar->setChecked(arrancar);
        form->cmdOk->click();
    }
    QTimer &Relogio() { return *sincronizador->findChild<QTimer *>(); }

    ServidorEmMemoria servidor;
    QStringList abertos, procuras;
    QList<FoundBook> livros{
        {QUrl(QStringLiteral("https://dav.example/eva/amigos/")), QStringLiteral("Amigos"), true, false},
        {QUrl(QStringLiteral("http://dav.example/eva/trabalho/")), QStringLiteral("Trabalho"), true, true}};
    RemoteError erro_da_procura;
    Sincronizador *sincronizador = nullptr;
};
