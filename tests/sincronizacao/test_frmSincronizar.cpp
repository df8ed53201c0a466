// The form in which a person chooses book and group, and the runs that begin by the clock.
#include "controls/Scale.h"
#include "data/Idiomas.h"
#include "sincronizacao/MesaDoFormulario.h"
#include "testlib/Accoes.h"
#include "testlib/Disparar.h"
#include "testlib/Teste.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{
using Mesa = MesaDoFormulario;
using Kind = RemoteError::Kind;
} // namespace

class TestFrmSincronizar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sem_nada_escolhido_esta_tudo_desligado()
    {
        Mesa m;
        const auto form = m.Abrir();
        QVERIFY(!form->cbLigada->isChecked());
        QVERIFY(!form->cmdSincronizar->isEnabled() && !form->cmdEncontrar->isEnabled());
        QCOMPARE(form->lblUltima->text(), m.s.Texto(519));
        QCOMPARE(form->ComboGrupo->currentText(), u"Telemóvel"_s);
        QCOMPARE(form->lvOcorrencias->accessibleDescription(), m.s.Texto(516));
        m.sincronizador->Iniciar();
        QVERIFY(!m.Relogio().isActive());
        QVERIFY(!m.sincronizador->Comecar(Sincronizacao::Modo::Normal));
    }

    void cada_coisa_tem_a_sua_legenda()
    {
        Mesa m;
        m.s.geral.IdiomaActual = u"AlemaoDE"_s;
        const auto form = m.Abrir();
        QCOMPARE(form->windowTitle(), m.s.Texto(500).remove(u'&'));
        const std::pair<const char *, int> legendas[]{
            {"lblEndereco", 501}, {"lblUtilizador", 502},  {"lblPalavraPasse", 503}, {"cmdEncontrar", 504},
            {"lblLivro", 505},    {"lblGrupo", 506},       {"cbLigada", 507},        {"cbArrancar", 508},
            {"lblMinutos", 509},  {"cmdSincronizar", 510}, {"cmdLimpar", 517},       {"lblUltima", 519},
            {"cmdCancelar", 43},  {"lblGuarda", 529}};
        for (const auto &[nome, texto] : legendas)
            QCOMPARE(form->findChild<QWidget *>(QString::fromLatin1(nome))->property("text").toString(),
                     m.s.Texto(texto));
        QCOMPARE(form->FrameServidor->title(), m.s.Texto(511));
        QCOMPARE(form->FrameSaber->title(), m.s.Texto(512));
        for (int coluna = 0; coluna < 3; ++coluna)
            QCOMPARE(form->lvOcorrencias->headerItem()->text(coluna), m.s.Texto(513 + coluna));
        QCOMPARE(form->lvOcorrencias->columnWidth(0), 150);
        QCOMPARE(form->lvOcorrencias->columnWidth(1), 130);
        QCOMPARE(form->txtMinutos->value(), 30); // as long as nobody has chosen
    }

    // What may be done, and when: while nothing goes on, while it searches, while it runs.
    void so_se_pode_o_que_nesse_momento_tem_sentido()
    {
        Mesa m;
        const auto form = m.Abrir();
        const auto ligados = [&] {
            QStringList nomes;
            for (QWidget *um :
                 {static_cast<QWidget *>(form->cmdEncontrar), static_cast<QWidget *>(form->cmdSincronizar),
                  static_cast<QWidget *>(form->cmdOk), static_cast<QWidget *>(form->cbArrancar),
                  static_cast<QWidget *>(form->txtMinutos)})
                if (um->isEnabled()) nomes << um->objectName();
            return nomes.join(u' ');
        };
        QCOMPARE(ligados(), u"cmdOk"_s);
        QTest::keyClicks(form->txtEndereco, u"  "_s);
        QCOMPARE(ligados(), u"cmdOk"_s);
        QTest::keyClicks(form->txtEndereco, u"dav.example "_s);
        QCOMPARE(ligados(), u"cmdEncontrar cmdOk"_s);
        form->cbLigada->setChecked(true);
        QCOMPARE(ligados(), u"cmdEncontrar cmdOk cbArrancar txtMinutos"_s);
        form->cbLigada->setChecked(false);
        QTest::keyClicks(form->txtUtilizador, u" eva "_s);
        form->cmdEncontrar->click();
        QCOMPARE(ligados(), QString());
        QTRY_COMPARE(ligados(), u"cmdEncontrar cmdSincronizar cmdOk"_s);
        QCOMPARE(m.procuras, QStringList{u"dav.example eva/"_s});
        QCOMPARE(form->ComboLivro->ListIndex(), 0);
        form->cmdSincronizar->click();
        QCOMPARE(ligados(), QString());
        m.Esperar();
        QCOMPARE(ligados(), u"cmdEncontrar cmdSincronizar cmdOk"_s);
    }

    void so_outro_endereco_esquece_os_livros_e_so_o_exposto_se_diz()
    {
        Mesa m;
        const auto form = m.Preencher();
        QTest::keyClicks(form->txtUtilizador, u"x"_s);
        QTest::keyClicks(form->txtPalavraPasse, u"x"_s);
        QCOMPARE(form->ComboLivro->ListCount(), 2);
        QCOMPARE(form->lblExposto->text(), QString());
        form->ComboLivro->setListIndex(1);
        QCOMPARE(form->lblExposto->text(), m.s.Texto(530));
        form->ComboLivro->setListIndex(0);
        QCOMPARE(form->lblExposto->text(), QString());
    }

    void o_progresso_conta_o_que_ja_foi()
    {
        Mesa m;
        const auto form = m.Preencher();
        Q_EMIT m.sincronizador->Progresso(0, 0);
        QVERIFY(form->ProgressBar1->isVisible());
        QCOMPARE(form->lblResultado->text(), m.s.Texto(525));
        Q_EMIT m.sincronizador->Progresso(3, 40);
        QCOMPARE(form->lblResultado->text(), m.s.Texto(525) + u" 3 / 40"_s);
        QCOMPARE(form->ProgressBar1->minimum(), 0);
        QCOMPARE(form->ProgressBar1->maximum(), 40);
        QCOMPARE(form->ProgressBar1->value(), 3);
        Q_EMIT m.sincronizador->Progresso(1, 1);
        QCOMPARE(form->lblResultado->text(), m.s.Texto(525) + u" 1 / 1"_s);
    }

    void enquanto_nada_corre_a_barra_so_guarda_o_seu_lugar()
    {
        Mesa m;
        const auto form = m.Abrir();
        QVERIFY(!form->ProgressBar1->isVisible());
        const QRect lista = form->FrameSaber->geometry();
        Q_EMIT m.sincronizador->Progresso(1, 2);
        QCoreApplication::processEvents();
        QVERIFY(form->ProgressBar1->isVisible());
        QCOMPARE(form->FrameSaber->geometry(), lista);
    }

    void outra_procura_apaga_o_que_se_disse_e_o_que_se_achou()
    {
        Mesa m;
        const auto form = m.Preencher();
        form->ComboLivro->setListIndex(1);
        m.erro_da_procura.kind = Kind::Password;
        form->cmdEncontrar->click();
        QTRY_COMPARE(form->lblResultado->text(), m.s.Texto(540));
        form->cmdEncontrar->click();
        QCOMPARE(form->lblResultado->text(), QString());
        Q_EMIT m.sincronizador->Progresso(1, 2); // of a run that the clock began
        QTRY_VERIFY(form->cmdEncontrar->isEnabled());
        QCOMPARE(form->lblResultado->text(), QString());
        QCOMPARE(form->ComboLivro->ListCount(), 2);
        QCOMPARE(form->ComboLivro->ListIndex(), 0);
    }

    void quem_nunca_escolheu_os_minutos_ve_os_de_omissao()
    {
        Mesa m;
        ContaSincronizada conta;
        conta.Endereco = u"dav.example"_s;
        for (const int minutos : {0, 5}) {
            conta.Minutos = minutos;
            MemoriaDaSincronizacao(m.s.geral.de, m.s.geral.SessaoActual.IdUtilizador).Guardar(conta);
            QCOMPARE(m.Abrir()->txtMinutos->value(), minutos > 0 ? minutos : 30);
        }
    }

    void quem_abre_a_meio_de_uma_corrida_ve_a_correr_e_pode_sair()
    {
        Mesa m;
        m.Contas_Ligada(false);
        Disparar(m.Relogio());
        const auto form = m.Abrir();
        QVERIFY(form->ProgressBar1->isVisible() && !form->cmdOk->isEnabled());
        QCOMPARE(form->lblResultado->text(), m.s.Texto(525));
        form->cmdCancelar->click(); // whoever did not ask for it does not end it
        QVERIFY(!form->isVisible() && m.sincronizador->A_Correr());
        m.Esperar();
        QCOMPARE(m.Abrir()->lblResultado->text(), m.s.Texto(521));
    }

    void eliminar_aqui_a_mais_pergunta_com_as_palavras_daqui()
    {
        Mesa m;
        for (int i = 0; i < 12; ++i)
            m.servidor.Por(u"/eva/%1.vcf"_s.arg(i), QByteArray("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:") +
                                                        QByteArray::number(i) + "\r\nFN:P" +
                                                        QByteArray::number(i) + "\r\nEND:VCARD\r\n");
        const auto form = m.Preencher();
        form->cmdSincronizar->click();
        m.Esperar();
        m.s.Escrever(u"DELETE FROM TblLista WHERE Nome<>'P3'"_s);
        m.s.caixas.Espera(m.s.Texto(550).arg(11).arg(12), 36, u"Sincronizar"_s, answer::yes);
        form->cmdSincronizar->click();
        QTRY_VERIFY(m.s.caixas.Todas_Vistas() && !m.sincronizador->A_Correr());
        QCOMPARE(m.servidor.cartoes.size(), 1U);
    }

    void uma_base_que_recusa_di_lo_e_nada_comeca_nem_se_fecha()
    {
        Mesa m;
        const auto form = m.Preencher();
        form->cbLigada->setChecked(true);
        m.s.Recusar(u"INSERT"_s, u"TblSincronizacao"_s);
        m.s.caixas.Espera_Erro(Failure::StoreError);
        form->cmdSincronizar->click();
        QVERIFY(m.s.caixas.Todas_Vistas() && !m.sincronizador->A_Correr());
        m.s.caixas.Espera_Erro(Failure::StoreError);
        form->cmdOk->click();
        QVERIFY(m.s.caixas.Todas_Vistas() && form->isVisible() && !m.Relogio().isActive());
        m.s.Deixar_De_Recusar();
        form->cmdOk->click();
        QVERIFY(!form->isVisible() && m.Relogio().isActive());
    }

    // A store that comes or goes takes the password along.
    void a_palavra_passe_muda_se_com_o_porta_chaves_data()
    {
        QTest::addColumn<bool>("antes");
        QTest::newRow("it has gone") << true;
        QTest::newRow("it has come") << false;
    }
    void a_palavra_passe_muda_se_com_o_porta_chaves()
    {
        QFETCH(bool, antes);
        Mesa m;
        m.s.segredos.ha = antes;
        m.Preencher()->cmdOk->click();
        m.s.segredos.ha = !antes;
        const auto form = m.Abrir();
        if (antes) { // nobody can read it there any more
            QCOMPARE(form->txtPalavraPasse->text(), QString());
            QTest::keyClicks(form->txtPalavraPasse, u"abcd-12 x"_s);
        }
        form->cmdSincronizar->click();
        m.Esperar();
        QCOMPARE(form->lblGuarda->text(), m.s.Texto(antes ? 529 : 528));
        const QString guardada = m.s.Linhas(u"SELECT PalavraPasse FROM TblSincronizacao"_s).constFirst();
        QCOMPARE(guardada.isEmpty(), !antes);
        QCOMPARE(m.abertos, QStringList{u"https://dav.example/eva/amigos/ eva/abcd-12 x"_s});
    }

    void o_grupo_que_se_oferece_faz_se_uma_vez()
    {
        Mesa m;
        QSignalSpy grupos(m.sincronizador, &Sincronizador::GruposMudados);
        const auto form = m.Preencher();
        for (int vez = 0; vez < 2; ++vez) {
            form->cmdSincronizar->click();
            m.Esperar();
        }
        QCOMPARE(grupos.size(), 1);
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblGrupos WHERE NomeGrupo='Telemóvel'"_s),
                 QStringList{u"1"_s});
    }

    void sem_livro_o_grupo_escolhido_fica_por_fazer()
    {
        Mesa m;
        const auto form = m.Abrir();
        QTest::keyClicks(form->txtEndereco, u"dav.example"_s);
        form->cmdOk->click();
        QCOMPARE(m.s.Linhas(u"SELECT Endereco, Livro, NomeDoLivro, IDGrupo FROM TblSincronizacao"_s),
                 QStringList{u"dav.example|||0"_s});
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblGrupos WHERE NomeGrupo='Telemóvel'"_s),
                 QStringList{u"0"_s});
    }

    void encontra_os_livros_e_sincroniza_o_escolhido_com_o_grupo_telemovel()
    {
        Mesa m;
        const auto form = m.Preencher();
        QCOMPARE(m.procuras, QStringList{u"dav.example eva/abcd-12 x"_s});
        QCOMPARE(form->ComboLivro->ListCount(), 2);
        m.servidor.Por(u"/eva/1.vcf"_s,
                       "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nFN:Ana\r\nN:Ana;;;;\r\nEND:VCARD\r\n");
        QSignalSpy mudados(m.sincronizador, &Sincronizador::ContactosMudados);
        form->cmdSincronizar->click();
        QVERIFY(!form->cmdSincronizar->isEnabled() && form->ProgressBar1->isVisible());
        m.Esperar();
        QCOMPARE(m.abertos, QStringList{u"https://dav.example/eva/amigos/ eva/abcd-12 x"_s});
        QCOMPARE(form->lblResultado->text(), m.s.Texto(520).arg(1).arg(0).arg(0).arg(0).arg(0).arg(0));
        QCOMPARE(
            m.s.Linhas(
                u"SELECT l.Nome, g.NomeGrupo, g.IdUtilizador FROM TblLista l JOIN TblGrupos g ON g.ID=l.Grupo"_s),
            QStringList{u"Ana|Telemóvel|%1"_s.arg(m.s.geral.SessaoActual.IdUtilizador)});
        QCOMPARE(mudados.size(), 1);
        QVERIFY(m.janela.ComboGrupos->findText(u"Telemóvel"_s) > 0);
        QVERIFY(!form->ProgressBar1->isVisible());
        QCOMPARE(form->lblUltima->text(),
                 m.s.Texto(518).arg(QLocale::system().toString(m.s.relogio.now(), QLocale::ShortFormat)));
        QCOMPARE(m.Abrir()->lblResultado->text(), form->lblResultado->text());
        QCOMPARE(m.Abrir()->ComboLivro->currentText(), u"Amigos"_s);
    }

    void o_que_se_escolheu_volta_a_ver_se()
    {
        Mesa m;
        {
            const auto form = m.Preencher();
            form->ComboLivro->setListIndex(1);
            QCOMPARE(form->lblExposto->text(), m.s.Texto(530));
            form->cbLigada->setChecked(true);
            form->cbArrancar->setChecked(true);
            form->txtMinutos->setValue(45);
            form->cmdOk->click();
        }
        const auto form = m.Abrir();
        QCOMPARE(form->txtEndereco->text(), u"dav.example"_s);
        QCOMPARE(form->txtPalavraPasse->text(), u"abcd-12 x"_s);
        QCOMPARE(form->ComboLivro->currentText(), u"Trabalho"_s);
        QCOMPARE(form->txtMinutos->value(), 45);
        QCOMPARE(form->txtUtilizador->text(), u"eva"_s);
        QCOMPARE(form->ComboLivro->ListCount(), 1);
        QCOMPARE(form->lblExposto->text(), m.s.Texto(530));
        QVERIFY(form->cbLigada->isChecked() && form->cbArrancar->isChecked());
        QCOMPARE(m.Relogio().interval(), 45 * 60'000);
        QVERIFY(m.Relogio().isActive());
        form->cbLigada->setChecked(false);
        form->cmdOk->click();
        QVERIFY(!m.Relogio().isActive());
    }

    void cancelar_nao_guarda_nada()
    {
        Mesa m;
        m.Preencher()->cmdCancelar->click();
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblSincronizacao"_s), QStringList{});
    }

    void a_palavra_passe_fica_no_porta_chaves_e_nao_na_base_ou_di_lo_data()
    {
        QTest::addColumn<bool>("ha");
        QTest::newRow("with a store") << true;
        QTest::newRow("without") << false;
    }
    void a_palavra_passe_fica_no_porta_chaves_e_nao_na_base_ou_di_lo()
    {
        QFETCH(bool, ha);
        Mesa m;
        m.s.segredos.ha = ha;
        const auto form = m.Preencher();
        QCOMPARE(form->lblGuarda->text(), m.s.Texto(ha ? 528 : 529));
        form->cmdOk->click();
        const QString guardada = m.s.Linhas(u"SELECT PalavraPasse FROM TblSincronizacao"_s).constFirst();
        QCOMPARE(guardada.isEmpty(), ha);
        QVERIFY(!guardada.contains(u"abcd"_s));
        QCOMPARE(m.s.segredos.guardados.values().contains(u"abcd-12 x"_s), ha);
        QCOMPARE(m.Abrir()->txtPalavraPasse->text(), u"abcd-12 x"_s);
    }

    void cada_falha_da_procura_tem_as_suas_palavras_data()
    {
        QTest::addColumn<int>("especie");
        QTest::addColumn<int>("texto");
        const std::pair<Kind, int> casos[]{
            {Kind::Address, 531},     {Kind::NoNetwork, 532},   {Kind::NoSuchHost, 533},
            {Kind::Refused, 534},     {Kind::Interrupted, 535}, {Kind::TimedOut, 536},
            {Kind::Certificate, 537}, {Kind::Unencrypted, 538}, {Kind::Password, 540},
            {Kind::Forbidden, 541},   {Kind::NotFound, 542},    {Kind::NoBook, 543},
            {Kind::NoRoom, 544},      {Kind::TooBig, 545},      {Kind::Malformed, 545},
            {Kind::Server, 546}};
        for (const auto &[especie, texto] : casos)
            QTest::addRow("%d", static_cast<int>(especie)) << static_cast<int>(especie) << texto;
    }
    void cada_falha_da_procura_tem_as_suas_palavras()
    {
        QFETCH(int, especie);
        QFETCH(int, texto);
        Mesa m;
        m.erro_da_procura.kind = static_cast<Kind>(especie);
        const auto form = m.Abrir();
        QTest::keyClicks(form->txtEndereco, u"dav.example"_s);
        form->cmdEncontrar->click();
        QTRY_COMPARE(form->lblResultado->text(), m.s.Texto(texto));
        QVERIFY(form->cmdEncontrar->isEnabled() && !form->cmdSincronizar->isEnabled());
    }

    void outro_servidor_so_com_licenca_data()
    {
        QTest::addColumn<int>("resposta");
        QTest::newRow("yes") << answer::yes;
        QTest::newRow("no") << answer::no;
    }
    void outro_servidor_so_com_licenca()
    {
        QFETCH(int, resposta);
        Mesa m;
        m.erro_da_procura = {Kind::Elsewhere, 301, u"https://outro.example/"_s};
        m.s.caixas.Espera(m.s.Texto(539).arg(u"https://outro.example/"_s), 36, u"Sincronizar"_s, resposta);
        const auto form = m.Abrir();
        QTest::keyClicks(form->txtEndereco, u"dav.example"_s);
        form->cmdEncontrar->click();
        QTRY_VERIFY(m.s.caixas.Todas_Vistas() && form->cmdEncontrar->isEnabled());
        QCOMPARE(m.procuras.size(), resposta == answer::yes ? 2 : 1);
        QCOMPARE(form->txtEndereco->text(),
                 resposta == answer::yes ? u"https://outro.example/"_s : u"dav.example"_s);
        QCOMPARE(form->lblResultado->text(), resposta == answer::yes ? QString() : m.s.Texto(542));
        QCOMPARE(form->ComboLivro->ListCount(), resposta == answer::yes ? 2 : 0);
    }

    void uma_procura_larga_se()
    {
        Mesa m;
        const auto form = m.Abrir();
        QTest::keyClicks(form->txtEndereco, u"dav.example"_s);
        form->cmdEncontrar->click();
        form->cmdCancelar->click();
        QVERIFY(form->isVisible() && form->cmdEncontrar->isEnabled());
        QCoreApplication::processEvents();
        QCOMPARE(form->ComboLivro->ListCount(), 0);
    }

    void outro_endereco_esquece_os_livros()
    {
        Mesa m;
        const auto form = m.Preencher();
        QTest::keyClicks(form->txtEndereco, u"x"_s);
        QCOMPARE(form->ComboLivro->ListCount(), 0);
        QVERIFY(!form->cmdSincronizar->isEnabled());
    }

    void os_conflitos_leem_se_na_lista_e_limpam_se()
    {
        Mesa m;
        MemoriaDaSincronizacao(m.s.geral.de, m.s.geral.SessaoActual.IdUtilizador)
            .Apontar({Ocorrencia::Conflito, 1, u"Ana"_s, u"Telemovel1"_s, u"922"_s, u"933"_s,
                      u"2027-02-01T09:00:00"_s});
        const auto form = m.Abrir();
        QCOMPARE(form->lvOcorrencias->topLevelItem(0)->text(1), u"Ana"_s);
        QCOMPARE(form->lvOcorrencias->topLevelItem(0)->text(2),
                 m.s.Texto(553).arg(u"Telemóvel"_s, u"933"_s, u"922"_s));
        QCOMPARE(form->lvOcorrencias->topLevelItem(0)->toolTip(2),
                 form->lvOcorrencias->topLevelItem(0)->text(2));
        QCOMPARE(form->lvOcorrencias->topLevelItem(0)->text(0),
                 QLocale::system().toString(QDateTime({2027, 2, 1}, {9, 0}), QLocale::ShortFormat));
        QVERIFY(form->cmdLimpar->isEnabled());
        form->cmdLimpar->click();
        QCOMPARE(form->lvOcorrencias->topLevelItemCount(), 0);
        QVERIFY(!form->cmdLimpar->isEnabled());
    }

    void demasiadas_eliminacoes_perguntam_e_a_resposta_vale_data()
    {
        QTest::addColumn<int>("resposta");
        QTest::addColumn<int>("ficam");
        QTest::newRow("yes") << answer::yes << 0;
        QTest::newRow("no") << answer::no << 12;
    }
    void demasiadas_eliminacoes_perguntam_e_a_resposta_vale()
    {
        QFETCH(int, resposta);
        QFETCH(int, ficam);
        Mesa m;
        for (int i = 0; i < 12; ++i)
            m.servidor.Por(u"/eva/%1.vcf"_s.arg(i), QByteArray("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:") +
                                                        QByteArray::number(i) + "\r\nFN:P" +
                                                        QByteArray::number(i) + "\r\nEND:VCARD\r\n");
        const auto form = m.Preencher();
        form->cmdSincronizar->click();
        m.Esperar();
        for (int i = 0; i < 12; ++i)
            m.servidor.Tirar(u"/eva/%1.vcf"_s.arg(i));
        m.s.caixas.Espera(m.s.Texto(549).arg(12).arg(12), 36, u"Sincronizar"_s, resposta);
        bool livre = false; // while one of the two runs goes on
        QObject::connect(m.sincronizador, &Sincronizador::Progresso, form.get(),
                         [&] { livre = livre || form->cmdOk->isEnabled(); });
        form->cmdSincronizar->click();
        QTRY_VERIFY(m.s.caixas.Todas_Vistas() && !m.sincronizador->A_Correr());
        QVERIFY(!livre && form->cmdOk->isEnabled());
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{QString::number(ficam)});
        QCOMPARE(static_cast<int>(m.servidor.cartoes.size()), ficam);
    }

    void cancelar_para_a_corrida_e_so_depois_fecha()
    {
        Mesa m;
        const auto form = m.Preencher();
        for (int i = 0; i < 50; ++i)
            m.s.Novo_Contacto({{u"Nome"_s, Value(u"P%1"_s.arg(i))}, {u"Grupo"_s, Value(1)}});
        form->cmdSincronizar->click();
        form->cmdCancelar->click();
        QVERIFY(form->isVisible());
        QTRY_COMPARE(form->lblResultado->text(), m.s.Texto(527));
        form->cmdCancelar->click();
        QVERIFY(!form->isVisible());
    }

    void o_relogio_comeca_uma_corrida_por_si()
    {
        Mesa m;
        m.Contas_Ligada(false);
        m.sincronizador->Iniciar();
        QCoreApplication::processEvents();
        QVERIFY(m.abertos.isEmpty()); // not at the start
        Disparar(m.Relogio());
        m.Esperar();
        QCOMPARE(m.abertos.size(), 1);
    }

    void ao_arrancar_corre_se_assim_se_quer()
    {
        Mesa m;
        m.Contas_Ligada(true);
        m.sincronizador->Iniciar();
        QTRY_COMPARE(m.abertos.size(), 1);
        m.Esperar();
    }

    void o_relogio_espera_pelo_formulario_que_edita()
    {
        Mesa m;
        m.Contas_Ligada(false);
        m.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        Disparar(m.Relogio());
        QTest::qWait(20);
        QVERIFY(m.abertos.isEmpty());
        m.s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        QTRY_COMPARE(m.abertos.size(), 1);
        m.Esperar();
    }

    void uma_falha_por_si_di_se_uma_vez_ate_uma_corrida_correr_bem()
    {
        Mesa m;
        m.Contas_Ligada(false);
        m.servidor.falha = [](const QString &) { return RemoteError{Kind::Password, 401, {}}; };
        Disparar(m.Relogio());
        m.Esperar();
        QVERIFY(m.Cartao() != nullptr);
        QCOMPARE(m.Cartao()->StatusLabel->text(), m.s.Texto(551) + u'\n' + m.s.Texto(540));
        m.Cartao()->close();
        Disparar(m.Relogio());
        m.Esperar();
        QVERIFY(m.Cartao() == nullptr);
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        Disparar(m.Relogio());
        m.Esperar();
        m.servidor.falha = [](const QString &) { return RemoteError{Kind::NoNetwork, 0, {}}; };
        Disparar(m.Relogio());
        m.Esperar();
        QVERIFY(m.Cartao() != nullptr);
        QSignalSpy abrir(m.sincronizador, &Sincronizador::Abrir_Sincronizar);
        QTest::mouseClick(m.Cartao(), Qt::LeftButton);
        QCOMPARE(abrir.size(), 1);
    }

    void uma_falha_pedida_diz_se_no_formulario_e_nao_no_cartao()
    {
        Mesa m;
        const auto form = m.Preencher();
        m.servidor.falha = [](const QString &) { return RemoteError{Kind::Refused, 0, {}}; };
        form->cmdSincronizar->click();
        m.Esperar();
        QCOMPARE(form->lblResultado->text(), m.s.Texto(534));
        QVERIFY(m.Cartao() == nullptr);
    }

    void a_entrada_do_menu_abre_o()
    {
        Mesa m;
        accoes::Quando_Abrir<frmSincronizar>([](frmSincronizar &form) { form.cmdCancelar->click(); });
        m.janela.Sincronizar->trigger();
        QVERIFY(m.janela.isEnabled());
        QCOMPARE(m.janela.Ferramentas->actions().constLast(), m.janela.Sincronizar);
    }

    void uma_palavra_passe_que_o_porta_chaves_nao_mostra_fica_la()
    {
        Mesa m;
        m.s.segredos.ha = true;
        m.Preencher()->cmdOk->click();
        const auto guardados = std::exchange(m.s.segredos.guardados, {}); // locked
        const auto form = m.Abrir();
        QCOMPARE(form->txtPalavraPasse->text(), QString());
        form->cmdSincronizar->click();
        QCOMPARE(form->lblResultado->text(), m.s.Texto(540));
        QVERIFY(m.s.segredos.guardados.isEmpty()); // not written over
        m.s.segredos.guardados = guardados;
        form->cmdSincronizar->click();
        m.Esperar();
        QCOMPARE(m.abertos, QStringList{u"https://dav.example/eva/amigos/ eva/abcd-12 x"_s});
    }

    void sem_endereco_a_palavra_passe_deixa_o_porta_chaves()
    {
        Mesa m;
        m.s.segredos.ha = true;
        m.Preencher()->cmdOk->click();
        QCOMPARE(m.s.segredos.guardados.values(), QStringList{u"abcd-12 x"_s});
        const auto form = m.Abrir();
        form->txtEndereco->selectAll();
        QTest::keyClick(form->txtEndereco, Qt::Key_Delete);
        form->cmdOk->click();
        QVERIFY(m.s.segredos.guardados.isEmpty());
        QVERIFY(!m.sincronizador->Comecar(Sincronizacao::Modo::Normal));
    }

    void um_servidor_sem_palavra_passe_tambem_serve_data()
    {
        QTest::addColumn<bool>("ha");
        QTest::newRow("with a store") << true;
        QTest::newRow("without") << false;
    }
    void um_servidor_sem_palavra_passe_tambem_serve()
    {
        QFETCH(bool, ha);
        Mesa m;
        m.s.segredos.ha = ha;
        const auto form = m.Abrir();
        QTest::keyClicks(form->txtEndereco, u"dav.example"_s);
        form->cmdEncontrar->click();
        QTRY_VERIFY(form->ComboLivro->ListCount() > 0);
        form->cmdSincronizar->click();
        m.Esperar();
        QCOMPARE(m.abertos, QStringList{u"https://dav.example/eva/amigos/ /"_s});
    }

    void so_com_o_teclado_encontra_se_escolhe_se_e_sincroniza_se()
    {
        Mesa m;
        const auto form = m.Abrir();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        const auto tecla = [&](Qt::Key qual, Qt::KeyboardModifiers com = {}) {
            QTest::keyClick(form->focusWidget(), qual, com);
        };
        QVERIFY(form->txtEndereco->hasFocus());
        QTest::keyClicks(form->focusWidget(), u"dav.example"_s);
        tecla(Qt::Key_Tab);
        QTest::keyClicks(form->focusWidget(), u"eva"_s);
        tecla(Qt::Key_Tab);
        QTest::keyClicks(form->focusWidget(), u"x"_s);
        tecla(Qt::Key_E, Qt::AltModifier);
        QTRY_VERIFY(form->ComboLivro->hasFocus());
        tecla(Qt::Key_Down);
        QCOMPARE(form->ComboLivro->currentText(), u"Trabalho"_s);
        tecla(Qt::Key_S, Qt::AltModifier);
        QTRY_VERIFY(form->cbLigada->isChecked());
        tecla(Qt::Key_A, Qt::AltModifier);
        QTRY_COMPARE(m.abertos, QStringList{u"http://dav.example/eva/trabalho/ eva/x"_s});
        m.Esperar();
        QCOMPARE(form->lblResultado->text(), m.s.Texto(521));
        QTest::keyClick(form.get(), Qt::Key_Escape);
        QVERIFY(!form->isVisible());
    }

    // Everything that can be used is reached by Tab alone, in the order of reading.
    void o_tabulador_passa_por_tudo()
    {
        Mesa m;
        const auto form = m.Preencher();
        form->cbLigada->setChecked(true);
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        form->txtEndereco->setFocus();
        QStringList passou;
        do {
            passou << form->focusWidget()->objectName();
            QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        } while (form->focusWidget() != form->txtEndereco && passou.size() < 30);
        QCOMPARE(passou, (QStringList{u"txtEndereco"_s, u"txtUtilizador"_s, u"txtPalavraPasse"_s,
                                      u"cmdEncontrar"_s, u"ComboLivro"_s, u"ComboGrupo"_s, u"cbLigada"_s,
                                      u"cbArrancar"_s, u"txtMinutos"_s, u"lvOcorrencias"_s,
                                      u"cmdSincronizar"_s, u"cmdOk"_s, u"cmdCancelar"_s}));
    }

    void em_letras_de_14_pontos_num_ecra_de_800_pixels_anda_so_num_sentido_data()
    {
        QTest::addColumn<QString>("idioma");
        for (const Idioma &idioma : idiomas::todos)
            QTest::newRow(idioma.coluna) << QString::fromUtf8(idioma.coluna);
    }
    void em_letras_de_14_pontos_num_ecra_de_800_pixels_anda_so_num_sentido()
    {
        QFETCH(QString, idioma);
        QFont letra;
        letra.setPointSizeF(14);
        scale::setLetters(scale::lettersFor(letra, 96));
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        Mesa m;
        m.s.geral.IdiomaActual = idioma;
        m.livros = {{QUrl(u"http://dav.example/eva/"_s),
                     u"Um livro com um nome comprido que nunca mais acaba"_s, true, true}};
        const auto form = m.Preencher();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        QCOMPARE(form->screen()->size(), QSize(800, 800));
        const auto *area = form->findChild<QScrollArea *>(); // none where all of it has room
        QVERIFY(area == nullptr || area->horizontalScrollBar()->maximum() == 0);
    }

    void quem_cede_di_lo_no_formulario_pelas_suas_palavras_data()
    {
        QTest::addColumn<QString>("acontece");
        QTest::addColumn<int>("texto");
        QTest::newRow("another run") << u"Corrida=Corrida+1"_s << 560;
        QTest::newRow("another book") << u"Corrida=Corrida+1, Livro='https://dav.example/outro/'"_s << 561;
        QTest::newRow("another group") << u"Corrida=Corrida+1, IDGrupo=1"_s << 561;
    }
    void quem_cede_di_lo_no_formulario_pelas_suas_palavras()
    {
        QFETCH(QString, acontece);
        QFETCH(int, texto);
        Mesa m;
        m.s.geral.IdiomaActual = u"AlemaoDE"_s;
        const auto form = m.Preencher();
        m.servidor.falha = [&](const QString &) {
            m.s.Escrever(u"UPDATE TblSincronizacao SET "_s + acontece);
            return RemoteError();
        };
        m.servidor.Por(u"/eva/1.vcf"_s,
                       "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nFN:Ana\r\nN:Ana;;;;\r\nEND:VCARD\r\n");
        form->cmdSincronizar->click();
        m.Esperar();
        QCOMPARE(form->lblResultado->text(), m.s.Texto(texto));
    }

    void quem_cede_a_outro_posto_nao_o_diz_como_falha_data()
    {
        QTest::addColumn<QString>("acontece");
        QTest::newRow("another run") << u"Corrida=Corrida+1"_s;
        QTest::newRow("another book") << u"Corrida=Corrida+1, Livro='https://dav.example/outro/'"_s;
    }
    void quem_cede_a_outro_posto_nao_o_diz_como_falha()
    {
        QFETCH(QString, acontece);
        Mesa m;
        m.Contas_Ligada(false);
        m.servidor.falha = [&](const QString &) {
            m.s.Escrever(u"UPDATE TblSincronizacao SET "_s + acontece); // at another desk
            return RemoteError();
        };
        m.servidor.Por(u"/eva/1.vcf"_s,
                       "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nFN:Ana\r\nN:Ana;;;;\r\nEND:VCARD\r\n");
        Disparar(m.Relogio());
        m.Esperar();
        QVERIFY(m.Cartao() == nullptr);
        QCOMPARE(m.s.Linhas(u"SELECT Nome FROM TblLista WHERE Nome='Ana'"_s), QStringList{});
    }

    void o_que_nao_tem_legenda_fala_com_as_palavras_de_quem_o_rodeia()
    {
        Mesa m;
        m.s.geral.IdiomaActual = u"AlemaoDE"_s;
        const auto form = m.Preencher();
        QCOMPARE(form->lvOcorrencias->accessibleName(), m.s.Texto(512));
        QCOMPARE(form->ProgressBar1->accessibleName(), m.s.Texto(500).remove(u'&'));
        form->cmdSincronizar->click();
        m.Esperar();
        QCOMPARE(form->lblResultado->accessibleName(), m.s.Texto(521)); // and not what was there before
    }

    void o_grupo_que_ja_ha_nao_se_oferece_outra_vez_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::newRow("the same") << u"Telemóvel"_s;
        QTest::newRow("in capitals") << u"TELEMÓVEL"_s;
    }
    void o_grupo_que_ja_ha_nao_se_oferece_outra_vez()
    {
        QFETCH(QString, nome);
        Mesa m;
        const int ID = m.s.Novo_Grupo(nome);
        m.s.Novo_Grupo(u"Zebras"_s); // behind it in the list
        const auto form = m.Abrir();
        QCOMPARE(form->ComboGrupo->currentText(), nome);
        QCOMPARE(form->ComboGrupo->ItemData(form->ComboGrupo->ListIndex()), ID);
        int quantos = 0;
        for (int i = 0; i < form->ComboGrupo->ListCount(); ++i)
            quantos +=
                static_cast<int>(form->ComboGrupo->List(i).compare(u"Telemóvel"_s, Qt::CaseInsensitive) == 0);
        QCOMPARE(quantos, 1);
    }

    void o_grupo_escolhido_volta_a_ver_se_tambem_onde_ha_um_telemovel()
    {
        Mesa m;
        m.s.Novo_Grupo(u"Telemóvel"_s);
        const int amigos = m.s.Novo_Grupo(u"Amigos de Ana"_s);
        const int zebras = m.s.Novo_Grupo(u"Zebras"_s);
        for (const int ID : {amigos, zebras}) {
            {
                const auto form = m.Preencher();
                for (int i = 0; i < form->ComboGrupo->ListCount(); ++i)
                    if (form->ComboGrupo->ItemData(i) == ID) form->ComboGrupo->setListIndex(i);
                form->cmdOk->click();
            }
            const auto form = m.Abrir();
            QCOMPARE(form->ComboGrupo->ItemData(form->ComboGrupo->ListIndex()), ID);
        }
    }

    void onde_outro_grupo_esta_escolhido_o_novo_so_se_oferece()
    {
        Mesa m;
        const int zebras = m.s.Novo_Grupo(u"Zebras"_s);
        {
            const auto form = m.Preencher();
            form->ComboGrupo->setListIndex(form->ComboGrupo->findText(u"Zebras"_s));
            form->cmdOk->click();
        }
        const auto form = m.Abrir();
        QCOMPARE(form->ComboGrupo->ItemData(form->ComboGrupo->ListIndex()), zebras);
        QVERIFY(form->ComboGrupo->findText(u"Telemóvel"_s) >= 0);
    }

    void sem_direito_a_grupos_nao_se_cria_um()
    {
        Mesa m;
        m.s.geral.SessaoActual.Grupos = false;
        const auto form = m.Preencher();
        QVERIFY(form->ComboGrupo->findText(u"Telemóvel"_s) < 0);
        QVERIFY(!form->cmdSincronizar->isEnabled());
        const auto guardado = [&m] {
            return m.s.Linhas(u"SELECT IDGrupo FROM TblSincronizacao"_s).constFirst().toInt();
        };
        Q_EMIT form->cmdOk->clicked();
        QCOMPARE(guardado(), 0);
        form->ComboGrupo->setListIndex(0);
        QVERIFY(form->cmdSincronizar->isEnabled());
        Q_EMIT form->cmdOk->clicked();
        QVERIFY(guardado() > 0);
        QCOMPARE(guardado(), form->ComboGrupo->ItemData(0));
    }

    void uma_palavra_passe_guarda_se_uma_vez()
    {
        Mesa m;
        m.s.segredos.ha = true;
        const auto form = m.Preencher();
        form->cmdSincronizar->click();
        m.Esperar();
        QCOMPARE(m.s.segredos.guardados.values(), QStringList{u"abcd-12 x"_s});
        m.s.segredos.guardados.clear(); // the person has taken it out of there
        form->cmdOk->click();
        QVERIFY(m.s.segredos.guardados.isEmpty());
    }

    void o_que_uma_corrida_aponta_ve_se_logo_que_acaba()
    {
        Mesa m;
        m.servidor.Por(u"/eva/1.vcf"_s, "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nFN:Ana\r\nEND:VCARD\r\n");
        m.servidor.nao_entrega = [](const QString &) { return RemoteError{Kind::Server, 500, {}}; };
        const auto form = m.Preencher();
        form->cmdSincronizar->click();
        QCOMPARE(form->lvOcorrencias->topLevelItemCount(), 0);
        m.Esperar();
        QCOMPARE(form->lvOcorrencias->topLevelItemCount(), 1);
        QVERIFY(form->cmdLimpar->isEnabled());
    }
};

MORVEX_TESTE(TestFrmSincronizar)
#include "test_frmSincronizar.moc"
