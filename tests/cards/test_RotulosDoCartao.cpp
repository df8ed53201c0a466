// The words before what a card says and no column holds: each label and the line above them, in every
// language.
#include "cards/RotulosDoCartao.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestRotulosDoCartao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_rotulo_esta_escrito_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("marca");
        QTest::addColumn<QString>("juntos"); // in the order of Rotulo
        QTest::newRow("PortuguesPT")
            << u"--- Outros dados do contacto ---"_s
            << u"Nome completo|Telefone|Telemóvel|Fax|Pager|E-mail|Página web|Morada|"
               "Aniversário|Categorias|Fotografia|Empresa|Cargo|Função|Alcunha|"
               "Mensagens instantâneas|Data especial|Pessoa relacionada|casa|trabalho"_s;
        QTest::newRow("PortuguesBR")
            << u"--- Outros dados do contato ---"_s
            << u"Nome completo|Telefone|Celular|Fax|Pager|E-mail|Site|Endereço|Aniversário|"
               "Categorias|Fotografia|Empresa|Cargo|Função|Apelido|Mensagens instantâneas|"
               "Data especial|Pessoa relacionada|casa|trabalho"_s;
        QTest::newRow("InglesUK")
            << u"--- Further details of the contact ---"_s
            << u"Full name|Phone|Mobile phone|Fax|Pager|E-mail|Website|Address|Birthday|"
               "Categories|Photograph|Organisation|Job title|Role|Nickname|Instant messaging|"
               "Anniversary|Related person|home|work"_s;
        QTest::newRow("EspanholES")
            << u"--- Otros datos del contacto ---"_s
            << u"Nombre completo|Teléfono|Teléfono móvil|Fax|Buscapersonas|Correo electrónico|"
               "Página web|Dirección|Cumpleaños|Categorías|Fotografía|Empresa|Cargo|Función|"
               "Apodo|Mensajería instantánea|Aniversario|Persona relacionada|casa|trabajo"_s;
        QTest::newRow("ItalianoIT")
            << u"--- Altri dati del contatto ---"_s
            << u"Nome completo|Telefono|Cellulare|Fax|Cercapersone|E-mail|Sito web|Indirizzo|"
               "Compleanno|Categorie|Fotografia|Azienda|Qualifica|Ruolo|Soprannome|"
               "Messaggistica istantanea|Ricorrenza|Persona collegata|casa|lavoro"_s;
        QTest::newRow("FrancesFR")
            << u"--- Autres données du contact ---"_s
            << u"Nom complet|Téléphone|Téléphone mobile|Fax|Récepteur d’appel|Adresse e-mail|"
               "Site web|Adresse|Anniversaire|Catégories|Photographie|Société|Poste|Fonction|"
               "Surnom|Messagerie instantanée|Date anniversaire|Personne liée|domicile|travail"_s;
        QTest::newRow("AlemaoDE")
            << u"--- Weitere Angaben zum Kontakt ---"_s
            << u"Vollständiger Name|Telefon|Mobiltelefon|Fax|Funkrufempfänger|E-Mail|Webseite|"
               "Anschrift|Geburtstag|Kategorien|Foto|Firma|Position|Funktion|Spitzname|"
               "Sofortnachrichten|Jahrestag|Bezugsperson|privat|geschäftlich"_s;
    }
    void cada_rotulo_esta_escrito_em_cada_lingua()
    {
        const QString idioma = QString::fromLatin1(QTest::currentDataTag());
        QFETCH(QString, marca);
        QFETCH(QString, juntos);
        const QStringList rotulos = juntos.split(u'|');
        QCOMPARE(rotulos.size(), static_cast<int>(Rotulo::Trabalho) + 1);
        for (qsizetype i = 0; i < rotulos.size(); ++i)
            QCOMPARE(rotulos_do_cartao::Em(static_cast<Rotulo>(i), idioma), rotulos[i]);
        QCOMPARE(rotulos_do_cartao::Marca(idioma), marca);
    }

    void a_marca_reconhece_se_com_brancos_a_volta_mas_nao_no_meio_de_outras_palavras()
    {
        QVERIFY(rotulos_do_cartao::E_Marca(u"  --- Weitere Angaben zum Kontakt ---\t"_s));
        QVERIFY(!rotulos_do_cartao::E_Marca(u"x --- Weitere Angaben zum Kontakt ---"_s));
        QVERIFY(!rotulos_do_cartao::E_Marca(QString()));
    }
};

QTEST_GUILESS_MAIN(TestRotulosDoCartao)
#include "test_RotulosDoCartao.moc"
