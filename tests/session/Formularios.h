// Every form of the program, as its opener makes it.
#pragma once

#include "cards/frmCampos.h"
#include "cards/frmDuplicados.h"
#include "cards/frmExportarContactos.h"
#include "cards/frmImportarContactos.h"
#include "cards/frmQR.h"
#include "contacts/DesfazerEliminacao.h"
#include "contacts/frmAddEdit.h"
#include "contacts/frmConflito.h"
#include "contacts/frmDeleteGroup.h"
#include "contacts/frmEditGroup.h"
#include "contacts/frmEmail.h"
#include "contacts/frmNovoGrupo.h"
#include "contacts/frmProcurar.h"
#include "contacts/frmVerImagem.h"
#include "contacts/ListaContactos.h"
#include "data/frmSeleccionarIdioma.h"
#include "interchange/frmBackup.h"
#include "interchange/frmExportar.h"
#include "interchange/frmImportar.h"
#include "interchange/frmImportar2.h"
#include "interchange/frmImportarMDB.h"
#include "interchange/Intercambio.h"
#include "memos/frmMemo.h"
#include "online/frmAddEditEmail.h"
#include "online/frmPopupEmail.h"
#include "printing/frmEnvelope.h"
#include "printing/frmEtiquetas.h"
#include "printing/frmImprimir.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/frmAniversarios.h"
#include "reminders/frmListaTarefas.h"
#include "reminders/frmPopup.h"
#include "reminders/frmTarefas.h"
#include "session/frmDeleteUser.h"
#include "session/frmEditUser.h"
#include "session/frmLoading.h"
#include "session/frmLogin.h"
#include "session/frmNovoUser.h"
#include "session/frmOpcoes.h"
#include "session/frmSobre.h"
#include "session/Main.h"
#include "sincronizacao/frmPopupSincronizacao.h"
#include "sincronizacao/frmSincronizar.h"
#include "testlib/RelatorioFalso.h"
#include "testlib/Sistema.h"

#include <QMap>
#include <QTest>

// An installation in that language with a user, a main window, and a form over it.
struct ComFormulario {
    explicit ComFormulario(const QString &idioma) : s(Sistema::Estado::Semeado, idioma)
    {
        s.Novo_Utilizador(QStringLiteral("Ana"), QStringLiteral("x"));
        s.geral.MemoFontName = QStringLiteral("Tahoma");
        s.geral.MemoFontSize = QStringLiteral("8,25");
        s.geral.MemoFontBold = s.geral.MemoFontItalic = QStringLiteral("False");
        s.geral.MemoCorFundo = QStringLiteral("65535");
        lista.Carregar_Grupos();
    }

    template<class Formulario, class... Argumentos> QWidget *Novo(Argumentos &&...argumentos)
    {
        form = std::make_unique<Formulario>(std::forward<Argumentos>(argumentos)...);
        return form.get();
    }

    Sistema s;
    Main janela{s.geral, s.plataforma};
    ListaContactos &lista = *janela.findChild<ListaContactos *>();
    DesfazerEliminacao &desfazer = *janela.findChild<DesfazerEliminacao *>();
    Intercambio &intercambio = *janela.findChild<Intercambio *>();
    RelatorioFalso relatorio;
    std::unique_ptr<QWidget> form;
};

// Somebody new, somebody who completes a contact of the book and somebody who may be that one.
inline QByteArray Cartoes_De_Exemplo(Sistema &s)
{
    s.Novo_Contacto({{QStringLiteral("Nome"), QStringLiteral("Ana Silva")},
                     {QStringLiteral("Email1"), QStringLiteral("ana@exemplo.pt")},
                     {QStringLiteral("Grupo"), 1}});
    return "BEGIN:VCARD\nFN:Ana Silva\nEMAIL:ana@exemplo.pt\nTEL;TYPE=CELL:+351 912 345 678\nURL:ana.pt\n"
           "END:VCARD\nBEGIN:VCARD\nFN:Rui Costa\nTEL;TYPE=HOME:212 345 678\nEND:VCARD\n"
           "BEGIN:VCARD\nFN:A. Silva\nEMAIL:ana@exemplo.pt\nEND:VCARD\n";
}

using Abertura = QWidget *(*)(ComFormulario &);

inline void Por_Modo(QString &modo, const char *valor) { modo = QLatin1StringView(valor); }

inline const QMap<QString, Abertura> aberturas{
    {QStringLiteral("frmLogin"),
     [](ComFormulario &c) { return c.Novo<frmLogin>(c.s.geral, c.s.plataforma); }},
    {QStringLiteral("frmLoading"), [](ComFormulario &c) { return c.Novo<frmLoading>(c.s.geral); }},
    {QStringLiteral("frmNovoUser"),
     [](ComFormulario &c) { return c.Novo<frmNovoUser>(c.s.geral, c.s.plataforma); }},
    {QStringLiteral("frmEditUser"),
     [](ComFormulario &c) { return c.Novo<frmEditUser>(c.s.geral, c.s.plataforma); }},
    {QStringLiteral("frmDeleteUser"),
     [](ComFormulario &c) { return c.Novo<frmDeleteUser>(c.s.geral, c.s.plataforma, c.janela); }},
    {QStringLiteral("frmOpcoes"),
     [](ComFormulario &c) { return c.Novo<frmOpcoes>(c.s.geral, c.s.plataforma, c.janela); }},
    {QStringLiteral("frmNovoGrupo"),
     [](ComFormulario &c) { return c.Novo<frmNovoGrupo>(c.s.geral, c.lista); }},
    {QStringLiteral("frmEditGroup"),
     [](ComFormulario &c) { return c.Novo<frmEditGroup>(c.s.geral, c.s.plataforma, c.lista); }},
    {QStringLiteral("frmDeleteGroup"),
     [](ComFormulario &c) { return c.Novo<frmDeleteGroup>(c.s.geral, c.s.plataforma, c.lista, c.desfazer); }},
    {QStringLiteral("frmEmail"),
     [](ComFormulario &c) {
         return c.Novo<frmEmail>(c.s.geral, c.s.plataforma, QStringLiteral("a@x"), QStringLiteral("b@x"));
     }},
    {QStringLiteral("frmAddEdit"),
     [](ComFormulario &c) {
         Por_Modo(c.s.geral.ModoContacto, "Add");
         auto *form = c.Novo<frmAddEdit>(c.janela, c.s.geral, c.s.plataforma, c.lista);
         static_cast<frmAddEdit *>(form)->Carregar();
         return form;
     }},
    {QStringLiteral("frmConflito"),
     [](ComFormulario &c) {
         const auto texto = [&](qint16 id) { // empty without a language
             QString lido;
             skipFailure([&] { lido = c.s.geral.Ler_Idioma(id); });
             return lido;
         };
         const auto imagem = [&c](const QString &nome) { return Picture(c.s.geral.Ficheiro(nome)); };
         return c.Novo<frmConflito>(
             c.s.geral, texto(421),
             CamposDisputados{{0, {texto(27), QStringLiteral("Ana Reis"), QStringLiteral("Ana Sousa"), {}}},
                              {1, {texto(38), QStringLiteral("28-02-1980"), QStringLiteral("31-01-1980"), {}}},
                              {2, {texto(37), QStringLiteral("Vem na terça"), QStringLiteral("Liga primeiro\r\ne vem na quarta"), {}}},
                              {3, {texto(35), QStringLiteral("semfoto_small.jpg"), QStringLiteral("fotoerro_small.jpg"), imagem}}},
             &c.janela);
     }},
    {QStringLiteral("frmProcurar"),
     [](ComFormulario &c) {
         auto *form = c.Novo<frmProcurar>(c.janela, c.s.geral, c.s.plataforma);
         static_cast<frmProcurar *>(form)->Abrir();
         return form;
     }},
    {QStringLiteral("frmVerImagem"),
     [](ComFormulario &c) {
         return c.Novo<frmVerImagem>(c.s.geral,
                                     Picture(c.s.geral.Ficheiro(QStringLiteral("semfoto_big.jpg"))));
     }},
    {QStringLiteral("frmAddEditTarefa, nova"),
     [](ComFormulario &c) {
         Por_Modo(c.s.geral.ModoTarefa, "Add");
         return c.Novo<frmAddEditTarefa>(c.s.geral, c.s.plataforma, c.janela, nullptr);
     }},
    {QStringLiteral("frmAddEditTarefa, editada"),
     [](ComFormulario &c) {
         Por_Modo(c.s.geral.ModoTarefa, "Edit");
         return c.Novo<frmAddEditTarefa>(c.s.geral, c.s.plataforma, c.janela, nullptr);
     }},
    {QStringLiteral("frmListaTarefas"),
     [](ComFormulario &c) { return c.Novo<frmListaTarefas>(c.s.geral, c.s.plataforma, c.janela); }},
    {QStringLiteral("frmTarefas"),
     [](ComFormulario &c) { return c.Novo<frmTarefas>(c.s.geral, c.s.plataforma, c.janela, c.relatorio); }},
    {QStringLiteral("frmAniversarios"),
     [](ComFormulario &c) { return c.Novo<frmAniversarios>(c.s.geral, c.janela); }},
    {QStringLiteral("frmMemo"), [](ComFormulario &c) { return c.Novo<frmMemo>(c.s.geral, c.s.plataforma); }},
    {QStringLiteral("frmAddEditEmail, nova"),
     [](ComFormulario &c) {
         Por_Modo(c.s.geral.ModoEmail, "Add");
         auto *form = c.Novo<frmAddEditEmail>(c.s.geral, nullptr);
         form->show();
         return form;
     }},
    {QStringLiteral("frmImprimir"),
     [](ComFormulario &c) { return c.Novo<frmImprimir>(c.s.geral, c.relatorio, *c.janela.ListaNomes); }},
    {QStringLiteral("frmEnvelope"),
     [](ComFormulario &c) { return c.Novo<frmEnvelope>(c.s.geral, c.relatorio); }},
    {QStringLiteral("frmEtiquetas"),
     [](ComFormulario &c) { return c.Novo<frmEtiquetas>(c.s.geral, c.relatorio, *c.janela.ListaNomes); }},
    {QStringLiteral("frmExportar"),
     [](ComFormulario &c) { return c.Novo<frmExportar>(c.s.geral, c.relatorio, *c.janela.ListaNomes); }},
    {QStringLiteral("frmExportarContactos"),
     [](ComFormulario &c) {
         c.janela.ComboGrupos->ChooseText(c.janela.ComboGrupos->List(1));
         return c.Novo<frmExportarContactos>(c.janela, c.s.geral, c.s.plataforma);
     }},
    {QStringLiteral("frmQR"),
     [](ComFormulario &c) {
         return c.Novo<frmQR>(c.s.geral, QByteArray(250, 'x'), QStringLiteral("Ágata Pereira"));
     }},
    {QStringLiteral("frmBackup"),
     [](ComFormulario &c) { return c.Novo<frmBackup>(c.s.geral, c.s.plataforma); }},
    {QStringLiteral("frmImportar"),
     [](ComFormulario &c) {
         return c.Novo<frmImportar>(c.s.geral, c.s.plataforma, c.intercambio, c.janela);
     }},
    {QStringLiteral("frmImportar2"),
     [](ComFormulario &c) {
         auto *form = c.Novo<frmImportar2>(c.s.geral, c.s.plataforma, c.intercambio, c.janela);
         static_cast<frmImportar2 *>(form)->Form_Load();
         return form;
     }},
    {QStringLiteral("frmCampos"),
     [](ComFormulario &c) {
         return c.Novo<frmCampos>(
             c.s.geral, c.s.plataforma,
             QByteArray("Nome;Telemóvel;E-mail;Aniversário;Signo\r\n"
                        "Ana Silva;912345678;ana@exemplo.example;4/3/1975;Peixes\r\n"
                        "Rui Costa;3,51912E+11;rui@exemplo.example;28/11/1980;Sagitário\r\n"));
     }},
    {QStringLiteral("frmImportarContactos"),
     [](ComFormulario &c) {
         auto *form = c.Novo<frmImportarContactos>(c.s.geral, c.s.plataforma);
         static_cast<frmImportarContactos *>(form)->Abrir_Cartoes(Cartoes_De_Exemplo(c.s));
         form->show();
         auto &barra = *static_cast<frmImportarContactos *>(form)->ProgressBar1;
         while (barra.isVisible())
             QCoreApplication::processEvents();
         return form;
     }},
    {QStringLiteral("frmDuplicados"),
     [](ComFormulario &c) {
         const QString grupo = QString::number(c.s.Ultimo_Id(QStringLiteral("TblGrupos")));
         for (const char *telemovel : {"912 345 678", "91 234 56 78"})
             c.s.Novo_Contacto({{QStringLiteral("Nome"), Value(QStringLiteral("Ana Silva"))},
                                {QStringLiteral("Telemovel1"), Value(QLatin1StringView(telemovel))},
                                {QStringLiteral("Email1"),
                                 Value(QLatin1StringView(telemovel).first(3) + QStringLiteral("@x.example"))},
                                {QStringLiteral("Morada"), Value(QStringLiteral("Rua Nova\r\nLisboa"))},
                                {QStringLiteral("Grupo"), Value(grupo)}});
         return c.Novo<frmDuplicados>(c.s.geral, c.s.plataforma, c.desfazer, &c.janela);
     }},
    {QStringLiteral("frmSincronizar"),
     [](ComFormulario &c) {
         return c.Novo<frmSincronizar>(c.s.geral, c.s.plataforma, *c.janela.findChild<Sincronizador *>());
     }},
    {QStringLiteral("frmImportarMDB"),
     [](ComFormulario &c) {
         c.intercambio.FileName = QFINDTESTDATA("fixtures/jet/vazia.mdb");
         return c.Novo<frmImportarMDB>(c.s.geral, c.s.plataforma, c.intercambio, c.janela);
     }},
};

// The main window with a contact, and what comes up over it.
inline const QMap<QString, Abertura> outras{
    {QStringLiteral("Main"),
     [](ComFormulario &c) -> QWidget * {
         c.s.Novo_Contacto({{QStringLiteral("Nome"), Value(QStringLiteral("Ágata"))},
                            {QStringLiteral("Email1"), Value(QStringLiteral("a@x.example"))}});
         c.lista.Carregar_Tabela();
         c.janela.ListaNomes->setListIndex(0);
         return &c.janela;
     }},
    {QStringLiteral("frmSobre"), [](ComFormulario &c) { return c.Novo<frmSobre>(c.s.geral, nullptr); }},
    {QStringLiteral("frmSeleccionarIdioma"),
     [](ComFormulario &c) { return c.Novo<frmSeleccionarIdioma>(c.s.geral, c.s.plataforma); }},
    {QStringLiteral("frmPopup"),
     [](ComFormulario &c) { return c.Novo<frmPopup>(c.s.geral, c.s.plataforma, c.janela, c.relatorio); }},
    {QStringLiteral("frmPopupEmail"),
     [](ComFormulario &c) { return c.Novo<frmPopupEmail>(c.janela, QStringLiteral("3 mensagens")); }},
    {QStringLiteral("frmPopupSincronizacao"),
     [](ComFormulario &c) {
         return c.Novo<frmPopupSincronizacao>(c.janela, QStringLiteral("O servidor falhou."));
     }},
};
