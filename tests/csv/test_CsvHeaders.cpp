// The names of columns, and those that mean one thing here and another there.
#include "csv/CsvHeaders.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using F = CsvField;
using P = CsvPlace;

namespace
{
std::vector<F> Campos(const QString &cabecalho)
{
    std::vector<F> campos;
    for (const CsvColumn &coluna : CsvHeaders().columns(cabecalho.split(u';')))
        campos.push_back(coluna.field);
    return campos;
}

std::vector<CsvColumn> Colunas(const QString &cabecalho)
{
    return CsvHeaders().columns(cabecalho.split(u';'));
}
} // namespace

class TestCsvHeaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void os_nomes_conhecem_se_nas_sete_linguas()
    {
        QVERIFY(CsvHeaders().knownNames() >= 685);
        QCOMPARE(
            Campos(u"Telemóvel;Celular;Mobile Phone;Teléfono móvil;Cellulare;Tél. mobile;Mobiltelefon"_s),
            std::vector<F>(7, F::Mobile));
        QCOMPARE(Campos(u"Morada;Fax comercial;E-mail;Apellidos;Cognome;Prénom;Nachname;Unbekannt"_s),
                 (std::vector<F>{F::Address, F::Fax, F::Email, F::FamilyName, F::FamilyName, F::GivenName,
                                 F::FamilyName, F::Unknown}));
    }

    void cada_campo_tem_um_nome_que_o_da()
    {
        const std::vector<std::pair<QString, CsvColumn>> nomes{
            {u"Anzeigename"_s, {F::FullName}},
            {u"Vorname"_s, {F::GivenName}},
            {u"Weitere Vornamen"_s, {F::MiddleName}},
            {u"Apelidos"_s, {F::FamilyName}},
            {u"Tratamento"_s, {F::NamePrefix}},
            {u"Name Suffix"_s, {F::NameSuffix}},
            {u"Alcunha"_s, {F::Nickname}},
            {u"Work Phone"_s, {F::Phone}},
            {u"Work Mobile"_s, {F::Mobile}},
            {u"Work Fax"_s, {F::Fax}},
            {u"Adresse de messagerie"_s, {F::Email}},
            {u"Business Web Page"_s, {F::Website}},
            {u"Morada completa"_s, {F::Address}},
            {u"Adresse personnelle"_s, {F::Street, P::Home}},
            {u"Altra via"_s, {F::Street, P::Other}},
            {u"Business Postal Code"_s, {F::PostCode, P::Work}},
            {u"Ville domicile"_s, {F::City, P::Home}},
            {u"Altra provincia"_s, {F::Region, P::Other}},
            {u"Home Country"_s, {F::Country, P::Home}},
            {u"Aniversário"_s, {F::Birthday}},
            {u"Dia"_s, {F::BirthDay}},
            {u"Birth Month"_s, {F::BirthMonth}},
            {u"Geburtsjahr"_s, {F::BirthYear}},
            {u"Anotações"_s, {F::Note}},
            {u"Abteilung"_s, {F::Detail}},
            {u"Categorias"_s, {F::Group}},
            {u"Foto"_s, {F::Photo}}};
        for (const auto &[nome, coluna] : nomes)
            QVERIFY2(CsvHeaders().columns({nome}).front() == coluna, qPrintable(nome));
        QVERIFY(CsvColumn() == (CsvColumn{F::Unknown, P::None, 0, false}));
    }

    void cada_nome_numerado_da_o_seu_campo_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<int>("campo");
        QTest::addColumn<bool>("rotulo");
        const auto linha = [](const QString &nome, F campo, bool rotulo = false) {
            QTest::newRow(qPrintable(nome)) << nome << static_cast<int>(campo) << rotulo;
        };
        for (const auto &[especie, campo] : {std::pair{u"Phone"_s, F::Phone},
                                             {u"Website"_s, F::Website},
                                             {u"E-mail"_s, F::Email},
                                             {u"Email"_s, F::Email},
                                             {u"Address"_s, F::Address}}) {
            linha(especie + u" 3 - Value"_s, campo);
            linha(especie + u" 3 - Label"_s, campo, true);
            linha(especie + u" 3 - Type"_s, campo, true);
        }
        linha(u"Address 3 - Formatted"_s, F::Address);
        linha(u"Address 3 - Street"_s, F::Street);
        linha(u"Address 3 - PO Box"_s, F::Street);
        linha(u"Address 3 - Extended Address"_s, F::Street);
        linha(u"Address 3 - City"_s, F::City);
        linha(u"Address 3 - Region"_s, F::Region);
        linha(u"Address 3 - Postal Code"_s, F::PostCode);
        linha(u"Address 3 - Country"_s, F::Country);
    }
    void cada_nome_numerado_da_o_seu_campo()
    {
        QFETCH(QString, nome);
        QFETCH(int, campo);
        QFETCH(bool, rotulo);
        const CsvColumn coluna = CsvHeaders().columns({nome}).front();
        QVERIFY(coluna == (CsvColumn{static_cast<F>(campo), P::None, 3, rotulo}));
    }

    void so_o_nome_que_muda_de_sentido_e_duvidoso()
    {
        const CsvHeaders cabecalhos;
        for (const auto &nome : {u"Nome"_s, u"Apelido"_s, u"Title"_s, u"Cidade"_s, u"Birth Day"_s})
            QVERIFY2(cabecalhos.isAmbiguous(nome), qPrintable(nome));
        for (const auto &nome : {u"Vorname"_s, u"Apelidos"_s, u"Phone 1 - Value"_s, u"Unbekannt"_s})
            QVERIFY2(!cabecalhos.isAmbiguous(nome), qPrintable(nome));
    }

    void um_nome_vale_sem_maiusculas_acentos_nem_sinais()
    {
        QCOMPARE(CsvHeaders::folded(u"  Straße (geschäftlich) "_s), u"strasse geschaftlich"_s);
        QCOMPARE(CsvHeaders::folded(u"E-mail 1 - Value"_s), u"e mail 1 value"_s);
        QCOMPARE(Colunas(u"Straße geschäftlich"_s), (std::vector<CsvColumn>{{F::Street, P::Work}}));
    }

    // A sign of the far east makes the library's decomposition take the whole text.
    void um_nome_de_letras_europeias_dobra_se_como_a_biblioteca_o_decompoe()
    {
        for (char16_t um = 0; um < 0x180; ++um)
            for (char16_t outro = 0; outro < 0x180; ++outro) {
                const QString nome = u"Zé "_s + QChar(um) + QChar(outro) + u"K"_s;
                if (CsvHeaders::folded(nome) + u" 中"_s != CsvHeaders::folded(nome + u" 中"_s))
                    QFAIL(qPrintable(u"%1 %2 in %3"_s.arg(int(um)).arg(int(outro)).arg(nome)));
            }
        for (char16_t um = 0; um < 0x180; ++um)
            QCOMPARE((CsvHeaders::folded(QChar(um)) + u" 中"_s).trimmed(),
                     CsvHeaders::folded(QChar(um) + u" 中"_s));
    }

    void um_nome_comprido_de_letras_que_dao_varias_dobra_se_inteiro()
    {
        QCOMPARE(CsvHeaders::folded(QString(5000, u'ß')), QString(10'000, u's'));
        QCOMPARE(CsvHeaders::folded(QString(5000, u'½')), u"1 2"_s.repeated(5000));
    }

    void a_primeira_letra_depois_das_europeias_fica_como_e()
    {
        QCOMPARE(CsvHeaders::folded(u"\u017f \u0180a"_s), u"s \u0180a"_s);
    }

    void as_colunas_numeradas_tem_numero_e_rotulo()
    {
        QCOMPARE(
            Colunas(u"Phone 1 - Label;Phone 1 - Value;E-mail 12 - Type;E-mail 12 - Value;Website 2 - Value;"
                    "Address 1 - City;Address 1 - Formatted;Address 1 - Postal Code;Relation 1 - Value"_s),
            (std::vector<CsvColumn>{{F::Phone, P::None, 1, true},
                                    {F::Phone, P::None, 1, false},
                                    {F::Email, P::None, 12, true},
                                    {F::Email, P::None, 12, false},
                                    {F::Website, P::None, 2, false},
                                    {F::City, P::None, 1, false},
                                    {F::Address, P::None, 1, false},
                                    {F::PostCode, P::None, 1, false},
                                    {}}));
    }

    void apelido_e_da_familia_ou_alcunha_conforme_as_outras_colunas()
    {
        QCOMPARE(Campos(u"Nome;Apelido;Telefone"_s), (std::vector<F>{F::GivenName, F::FamilyName, F::Phone}));
        QCOMPARE(Campos(u"Nome;Apelido;Sobrenome"_s),
                 (std::vector<F>{F::GivenName, F::Nickname, F::FamilyName}));
    }

    void nome_e_o_nome_inteiro_ou_o_proprio_conforme_as_outras_colunas()
    {
        QCOMPARE(Campos(u"Nome;Morada"_s), (std::vector<F>{F::FullName, F::Address}));
        QCOMPARE(Campos(u"Nome;Cognome"_s), (std::vector<F>{F::GivenName, F::FamilyName}));
        QCOMPARE(Campos(u"Nome;Nome visualizzato"_s), (std::vector<F>{F::GivenName, F::FullName}));
    }

    void titulo_antes_do_nome_e_tratamento_e_depois_profissao()
    {
        QCOMPARE(Campos(u"Title;First Name"_s), (std::vector<F>{F::NamePrefix, F::GivenName}));
        QCOMPARE(Campos(u"First Name;Title"_s), (std::vector<F>{F::GivenName, F::Detail}));
        QCOMPARE(Campos(u"Last Name;Title"_s), (std::vector<F>{F::FamilyName, F::Detail}));
        QCOMPARE(Campos(u"Full Name;Title"_s), (std::vector<F>{F::FullName, F::Detail}));
        QCOMPARE(Campos(u"Notes;Title"_s), (std::vector<F>{F::Note, F::NamePrefix})); // nobody's name is before it
        QCOMPARE(Campos(u"Titre;Prénom;Titre"_s), (std::vector<F>{F::NamePrefix, F::GivenName, F::Detail}));
    }

    void o_aniversario_e_inteiro_ou_o_seu_dia_conforme_haja_mes_ou_ano()
    {
        QCOMPARE(Campos(u"Birth Day"_s), std::vector<F>{F::Birthday});
        QCOMPARE(Campos(u"Geburtstag;Name"_s), (std::vector<F>{F::Birthday, F::FullName}));
        QCOMPARE(Campos(u"Birth Year;Birth Month;Birth Day"_s),
                 (std::vector<F>{F::BirthYear, F::BirthMonth, F::BirthDay}));
        QCOMPARE(Campos(u"Jour;Mois"_s), (std::vector<F>{F::BirthDay, F::BirthMonth}));
    }

    void uma_parte_de_morada_sem_lugar_e_do_lugar_da_sua_vizinha()
    {
        QCOMPARE(Colunas(u"Adresse privée;Ville;Code postal;Adresse professionnelle;Ville;Code postal"_s),
                 (std::vector<CsvColumn>{{F::Street, P::Home},
                                         {F::City, P::Home},
                                         {F::PostCode, P::Home},
                                         {F::Street, P::Work},
                                         {F::City, P::Work},
                                         {F::PostCode, P::Work}}));
        QCOMPARE(
            Colunas(u"CEP;Cidade;CEP"_s),
            (std::vector<CsvColumn>{{F::PostCode, P::Home}, {F::City, P::Home}, {F::PostCode, P::Work}}));
        // Alone it is that of the home; and a numbered one is nobody's neighbour.
        QCOMPARE(Colunas(u"Cidade"_s), (std::vector<CsvColumn>{{F::City, P::Home}}));
        QCOMPARE(Colunas(u"Address 1 - City;Cidade"_s).back(), (CsvColumn{F::City, P::Home}));
        // The one before counts more than the one behind, however far.
        QCOMPARE(Colunas(u"Adresse geschäftlich;Telemóvel;Cidade;Home Country"_s).at(2),
                 (CsvColumn{F::City, P::Work}));
        QCOMPARE(Colunas(u"CEP;CEP;CEP;CEP"_s), (std::vector<CsvColumn>{{F::PostCode, P::Home},
                                                                        {F::PostCode, P::Work},
                                                                        {F::PostCode, P::Other},
                                                                        {F::PostCode, P::Other}}));
        QCOMPARE(Colunas(u"Cidade;Adresse geschäftlich"_s),
                 (std::vector<CsvColumn>{{F::City, P::Work}, {F::Street, P::Work}}));
        QCOMPARE(Colunas(u"Cidade;Telemóvel;Adresse geschäftlich"_s).front(), (CsvColumn{F::City, P::Work}));
    }

    void da_rua_ao_pais_sao_partes_de_uma_morada_e_mais_nada()
    {
        for (int i = static_cast<int>(F::Unknown); i <= static_cast<int>(F::Photo); ++i) {
            const auto campo = static_cast<F>(i);
            const bool parte = campo == F::Street || campo == F::PostCode || campo == F::City || campo == F::Region ||
                               campo == F::Country;
            QCOMPARE(isAddressPart(campo), parte);
        }
    }

    void regiao_ou_pais_e_o_que_ainda_falta_nesse_lugar()
    {
        QCOMPARE(Colunas(u"Provincia o estado de trabajo;País o región del trabajo"_s),
                 (std::vector<CsvColumn>{{F::Region, P::Work}, {F::Country, P::Work}}));
        QCOMPARE(Colunas(u"Region geschäftlich;Bundesland geschäftlich"_s).front(),
                 (CsvColumn{F::Country, P::Work}));
        QCOMPARE(Colunas(u"Region geschäftlich"_s), (std::vector<CsvColumn>{{F::Region, P::Work}}));
    }

    void um_fax_e_um_fax_em_qualquer_lugar()
    {
        QCOMPARE(Campos(u"Other Fax;Weiteres Fax;Outro fax;Otro fax;Télécopie (autre)"_s),
                 std::vector<F>(5, F::Fax));
    }
};

MORVEX_TESTE(TestCsvHeaders)
#include "test_CsvHeaders.moc"
