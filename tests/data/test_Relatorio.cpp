// What every report is told alike, whoever asks for it.
#include "data/Relatorio.h"
#include "testlib/RelatorioFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestRelatorio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_previsao_e_uma_janela_maximizada_com_esse_titulo_e_o_botao_de_imprimir()
    {
        RelatorioFalso relatorio;
        relatorio::Pre_Visualizar(u"Pré-visualizar"_s, relatorio);
        QCOMPARE(relatorio.historia, (QStringList{u"Destination 0"_s, u"WindowTitle Pré-visualizar"_s,
                                                  u"WindowState 2"_s, u"WindowShowPrintBtn 1"_s}));
    }

    void a_base_e_a_da_sessao_e_sem_uma_a_da_pasta_do_programa_que_fica()
    {
        Sistema s(Sistema::Estado::Semeado, u"PortuguesPT"_s, Sistema::Onde::Num_Ficheiro);
        RelatorioFalso relatorio;
        s.geral.CaminhoBD = s.Ficheiro(u"outra.mdb"_s);
        relatorio::Indicar_Base(s.geral, relatorio);
        s.geral.CaminhoBD.clear();
        relatorio::Indicar_Base(s.geral, relatorio);
        QCOMPARE(relatorio.historia, (QStringList{u"Connect outra.mdb"_s, u"DataFiles 0 outra.mdb"_s,
                                                  u"Connect morvex.mdb"_s, u"DataFiles 0 morvex.mdb"_s}));
        QCOMPARE(QFileInfo(s.geral.CaminhoBD).fileName(), u"morvex.mdb"_s);
    }

    void so_o_contacto_desse_numero() { QCOMPARE(relatorio::Seleccao_Do_Contacto(7), u"{TblLista.ID} =7"_s); }
};

MORVEX_TESTE(TestRelatorio)
#include "test_Relatorio.moc"
