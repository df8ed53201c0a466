// What a form reads it closes: no recordset of the catalogue stays open behind one, whichever command it ran.
#include "session/Formularios.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
// The name of a command as the literal that DE asks for.
template<std::size_t tamanho> struct Literal {
    consteval explicit Literal(std::string_view nome) { std::copy(nome.begin(), nome.end(), texto); }
    char texto[tamanho + 1]{};
};

template<std::size_t lugar> void Juntar_Se_Aberto(DE &de, QStringList &abertos)
{
    constexpr EntradaDoCatalogo entrada = comandos::catalogo[lugar];
    if constexpr (entrada.linhas == Linhas::ComLinhas) {
        static constexpr Literal<entrada.nome.size()> nome(entrada.nome);
        if (de.Rs(nome.texto).State() == Recordset::Open) abertos << QString::fromLatin1(nome.texto);
    }
}

QStringList Abertos(DE &de)
{
    QStringList abertos;
    [&]<std::size_t... lugares>(std::index_sequence<lugares...>)
    {
        (Juntar_Se_Aberto<lugares>(de, abertos), ...);
    }
    (std::make_index_sequence<comandos::catalogo.size()>());
    return abertos;
}

// Where the row that is asked for isn't there, reading it fails and the recordset waits for its next use.
const QMap<QString, QString> sem_a_linha{{u"frmEditGroup"_s, u"cmdSelectUtilizadorGrupo"_s},
                                         {u"frmEtiquetas"_s, u"cmdVerIDGrupo"_s},
                                         {u"frmExportar"_s, u"cmdVerIDGrupo"_s},
                                         {u"frmImprimir"_s, u"cmdVerIDGrupo"_s}};
} // namespace

class TestConjuntosFechados : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_conjunto_por_fechar_ve_se()
    {
        Sistema s;
        s.geral.de.Abrir("cmdVerGrupo", {u"1"});
        s.geral.de.Abrir("cmdListarTarefas", {u"0"});
        QCOMPARE(Abertos(s.geral.de), (QStringList{u"cmdVerGrupo"_s, u"cmdListarTarefas"_s}));
    }

    void um_formulario_fecha_o_que_leu_data()
    {
        QTest::addColumn<QString>("nome");
        for (const QString &nome : aberturas.keys() + outras.keys())
            QTest::newRow(qPrintable(nome)) << nome;
    }
    void um_formulario_fecha_o_que_leu()
    {
        QFETCH(QString, nome);
        ComFormulario c(u"PortuguesPT"_s);
        QWidget &form = *(aberturas.contains(nome) ? aberturas[nome] : outras[nome])(c);
        form.show();
        QCoreApplication::processEvents();
        QCOMPARE(Abertos(c.s.geral.de).join(u' '), sem_a_linha[nome]);
        if (nome != "frmMemo"_L1) form.close(); // which would ask whether it goes
        QCOMPARE(Abertos(c.s.geral.de).join(u' '), sem_a_linha[nome]);
    }
};

MORVEX_TESTE(TestConjuntosFechados)
#include "test_ConjuntosFechados.moc"
