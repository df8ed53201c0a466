// The contact card: what each row shows, where it stands, and what a failure leaves.
#include "contacts/CartaoContacto.h"
#include "controls/Controls.h"
#include "controls/Units.h"
#include "testlib/ComJanela.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/OutrosNomes.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Linha {
    const char *nome;
    const char *caixa;
    const char *imagem; // null: the row has none
    int afastamento;    // from the icon's left to the box's, in twips
};

constexpr std::array linhas{
    Linha{"Telefone1", "txtTelefone1", "imgTelefone1", 300},
    Linha{"Telefone2", "txtTelefone2", "imgTelefone2", 300},
    Linha{"Fax", "txtFax", "imgFax", 300},
    Linha{"Telemovel1", "txtTelemovel1", "imgTelemovel1", 250},
    Linha{"Telemovel2", "txtTelemovel2", "imgTelemovel2", 250},
    Linha{"Telemovel3", "txtTelemovel3", "imgTelemovel3", 250},
    Linha{"Email1", "txtEmail1", "imgEmail1", 300},
    Linha{"Email2", "txtEmail2", "imgEmail2", 300},
    Linha{"Website", "txtWebsite", "imgWebsite", 300},
    Linha{"Grupo", "txtGrupo", "imgGrupo", 300},
    Linha{"Aniversario", "txtAniversario", "imgAniversario", 300},
    Linha{"Idade", "txtIdade", nullptr, 0},
    Linha{"Morada", "txtMorada", "imgMorada", 300},
    Linha{"Obs", "txtObs", "imgObservacoes", 300},
};

// The left column holds the lines 1 to 10, the right one 11 to 17.
QPoint Lugar_Da_Linha(int linha)
{
    const int left = linha <= 10 ? 420 : 5160;
    const int top = 2820 + 340 * (linha <= 10 ? linha - 1 : linha - 11);
    return {pixels(left), pixels(top)};
}

QString Linha_No_Lugar(QPoint lugar)
{
    for (int linha = 1; linha <= 17; ++linha)
        if (Lugar_Da_Linha(linha) == lugar) return QString::number(linha);
    return u"?"_s;
}

// Empty if the icon shows exactly when its box does and stands to its left.
QString Erro_Da_Imagem(const Main &janela, const Linha &linha, const QWidget &caixa)
{
    if (linha.imagem == nullptr) return {};
    const auto *imagem = janela.findChild<QWidget *>(QLatin1StringView(linha.imagem));
    if (imagem->isHidden() != caixa.isHidden()) return u"!imagem"_s;
    // The boxes stand at 420 or 5160 twips; halves of a pixel are rounded from there.
    const int left = (caixa.x() == pixels(420) ? 420 : 5160) - linha.afastamento;
    const bool no_lugar = imagem->pos() == QPoint(pixels(left), caixa.y());
    return caixa.isHidden() || no_lugar ? QString() : u"!lugar_da_imagem"_s;
}

// "Telefone1:1 Grupo:2 Obs:11" and so on: every row that shows, with its line.
QString Disposicao(const Main &janela)
{
    QStringList partes;
    for (const Linha &linha : linhas) {
        const auto *caixa = janela.findChild<QWidget *>(QLatin1StringView(linha.caixa));
        const QString erro = Erro_Da_Imagem(janela, linha, *caixa);
        if (!caixa->isHidden())
            partes << QLatin1StringView(linha.nome) + u':' + Linha_No_Lugar(caixa->pos()) + erro;
        else if (!erro.isEmpty())
            partes << QLatin1StringView(linha.nome) + erro;
    }
    return partes.join(u' ');
}

using Colunas = QMap<QString, Value>;

// A value in each of these columns, separated by blanks.
Colunas Preenchido(const QString &nomes)
{
    Colunas colunas{{u"Nome"_s, u"Contacto"_s}};
    for (const QString &nome : nomes.split(u' ', Qt::SkipEmptyParts))
        colunas.insert(nome, nome.toLower());
    return colunas;
}

const auto esquerda_cheia =
    u"Telefone1 Telefone2 Fax Telemovel1 Telemovel2 Telemovel3 Email1 Email2 Website "_s;

// The birthday of somebody who is 46 on the test's first of February of 2027.
Colunas Com_Aniversario(Colunas colunas, const QString &Dia = u"7"_s, const QString &Mes = u"3"_s,
                        const QString &Ano = u"1980"_s)
{
    colunas.insert(u"Dia"_s, Dia);
    colunas.insert(u"Mes"_s, Mes);
    colunas.insert(u"Ano"_s, Ano);
    return colunas;
}

// A birthday that is no date: the card of such a contact fails.
Colunas Sem_Data(const QString &nomes) { return Com_Aniversario(Preenchido(nomes), u"31"_s, u"4"_s); }

const QStringList editar_e_eliminar{u"EditarContacto"_s, u"editar_contacto"_s, u"EliminarContacto"_s,
                                    u"eliminar_contacto"_s};

constexpr QRect foto_por_omissao(352, 27, 161, 155);

// Does the one as soon as a contact's own picture takes its place, the other when the one for want of a
// picture does.
class NaMudancaDaFoto final : public QObject
{
public:
    NaMudancaDaFoto(QWidget &Thumb, std::function<void()> na_propria, std::function<void()> na_por_omissao)
        : Thumb_(Thumb), na_propria_(std::move(na_propria)), na_por_omissao_(std::move(na_por_omissao))
    {
        Thumb_.installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            (Thumb_.geometry() == foto_por_omissao ? na_por_omissao_ : na_propria_)();
        return false;
    }

private:
    QWidget &Thumb_;
    std::function<void()> na_propria_, na_por_omissao_;
};
} // namespace

class TestCartaoContacto : public QObject
{
    Q_OBJECT

    static void Esperar_Erro_Do_Cartao(ComJanela &c) { c.s.caixas.Espera(c.s.Texto(256), 16, u"Morvex"_s); }

    static bool Ligados(const Main &janela, const QStringList &comandos, bool esperado = true)
    {
        return std::all_of(comandos.begin(), comandos.end(), [&](const QString &nome) {
            return control<QAction>(janela, nome).isEnabled() == esperado;
        });
    }

    static bool Editar_E_Eliminar(const Main &janela)
    {
        return janela.cmdEditar->isEnabled() && janela.cmdEliminar->isEnabled();
    }

    static void Gravar_Imagem(const QString &ficheiro, QSize pontos, QRgb cor = qRgb(200, 0, 0))
    {
        QImage imagem(pontos, QImage::Format_RGB32);
        imagem.fill(cor);
        QVERIFY(imagem.save(ficheiro, "PNG"));
    }

    static QRgb Cor_Da_Foto(const Main &janela)
    {
        const QImage foto = janela.Thumb->pixmap().toImage();
        return foto.pixel(foto.rect().center());
    }

    static bool Mostra_A_Foto_Por_Omissao(ComJanela &c)
    {
        const auto &cartao = *c.janela.findChild<CartaoContacto *>();
        return c.janela.Thumb->geometry() == foto_por_omissao && !c.janela.Thumb->pixmap().isNull() &&
               cartao.Image1().path() == c.s.geral.Ficheiro(u"semfoto_big.jpg"_s);
    }

private Q_SLOTS:
    void em_letras_maiores_cada_linha_e_a_foto_tem_o_lugar_do_desenho_data()
    {
        QTest::addColumn<int>("letras");
        for (const int letras : {16, 18, 20, 21})
            QTest::addRow("%d", letras) << letras;
    }
    void em_letras_maiores_cada_linha_e_a_foto_tem_o_lugar_do_desenho()
    {
        QFETCH(int, letras);
        scale::setLetters(letras);
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        ComJanela c;
        c.Mostrar(Com_Aniversario(Preenchido(esquerda_cheia + u"Morada Obs"_s)));
        QCOMPARE(Disposicao(c.janela),
                 u"Telefone1:1 Telefone2:2 Fax:3 Telemovel1:4 Telemovel2:5 Telemovel3:6 Email1:7 "
                 u"Email2:8 Website:9 Grupo:10 Aniversario:11 Idade:12 Morada:13 Obs:17"_s);
        QCOMPARE(c.janela.Thumb->geometry(), pixelRect(5280, 400, 2415, 2325));
        Gravar_Imagem(c.s.Ficheiro(u"minha.png"_s), {60, 40});
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, u"minha.png"_s}});
        QCOMPARE(c.janela.Thumb->geometry(), pixelRect(6037.5, 1252.5, 900, 600));
    }

    void os_controlos_tem_lugar_e_tamanho_do_desenho_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QRect>("lugar"); // twips
        const auto linha = [](const char *nome, int left, int top, int height = 285) {
            QTest::newRow(nome) << QString::fromLatin1(nome) << QRect(left, top, 4155, height);
        };
        int top = 2820;
        for (const char *nome : {"txtTelefone1", "txtTelefone2", "txtFax", "txtTelemovel1", "txtTelemovel2",
                                 "txtTelemovel3", "txtEmail1", "txtEmail2", "txtWebsite", "txtGrupo"}) {
            linha(nome, 420, top);
            top += 340;
        }
        linha("txtAniversario", 5160, 2820);
        linha("txtIdade", 5160, 3160);
        linha("txtMorada", 5160, 3500, 1300);
        linha("txtObs", 5160, 4860, 1300);
    }
    void os_controlos_tem_lugar_e_tamanho_do_desenho()
    {
        QFETCH(QString, nome);
        QFETCH(QRect, lugar);
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        const auto &caixa = control<QWidget>(janela, nome);
        QCOMPARE(caixa.geometry(), pixelRect(lugar.left(), lugar.top(), lugar.width(), lugar.height()));
        QVERIFY(caixa.property("readOnly").toBool());
    }

    // Rows

    void so_com_nome_mostra_apenas_o_grupo()
    {
        ComJanela c;
        c.Mostrar(Preenchido(u""_s));
        QCOMPARE(Disposicao(c.janela), u"Grupo:1"_s);
        QCOMPARE(c.janela.txtGrupo->text(), u"Outros"_s);
        QCOMPARE(c.janela.imgGrupo->x(), pixels(120));
    }

    void sem_o_primeiro_telefone_o_segundo_fica_na_primeira_linha()
    {
        ComJanela c;
        c.Mostrar(Preenchido(u"Telefone2"_s));
        QCOMPARE(Disposicao(c.janela), u"Telefone2:1 Grupo:2"_s);
    }

    void a_coluna_esquerda_cheia_leva_o_grupo_a_decima_linha()
    {
        ComJanela c;
        c.Mostrar(Preenchido(esquerda_cheia));
        QCOMPARE(Disposicao(c.janela),
                 u"Telefone1:1 Telefone2:2 Fax:3 Telemovel1:4 Telemovel2:5 Telemovel3:6 Email1:7 "
                 u"Email2:8 Website:9 Grupo:10"_s);
        QCOMPARE(c.janela.imgTelemovel1->x(), pixels(170));
    }

    void telefone_telemovel_mail_aniversario_morada_e_notas()
    {
        ComJanela c;
        c.Mostrar(Com_Aniversario(Preenchido(u"Telefone1 Telemovel1 Email1 Morada Obs"_s)));
        QCOMPARE(Disposicao(c.janela),
                 u"Telefone1:1 Telemovel1:2 Email1:3 Grupo:4 Aniversario:5 Idade:6 Morada:11 Obs:15"_s);
        QCOMPARE(c.janela.txtObs->geometry(), pixelRect(5160, 4180, 4155, 2000));
        QCOMPARE(c.janela.txtMorada->geometry(), pixelRect(5160, 2820, 4155, 1300));
    }

    void todos_os_campos_preenchidos()
    {
        ComJanela c;
        c.Mostrar(Com_Aniversario(Preenchido(esquerda_cheia + u"Morada Obs"_s)));
        QCOMPARE(Disposicao(c.janela),
                 u"Telefone1:1 Telefone2:2 Fax:3 Telemovel1:4 Telemovel2:5 Telemovel3:6 Email1:7 "
                 u"Email2:8 Website:9 Grupo:10 Aniversario:11 Idade:12 Morada:13 Obs:17"_s);
        QCOMPARE(c.janela.txtObs->geometry(), pixelRect(5160, 4860, 4155, 1300));
        for (const Linha &linha : linhas) {
            const QString nome = QLatin1StringView(linha.nome);
            if (auto *caixa = c.janela.findChild<QLineEdit *>(u"txt"_s + nome);
                caixa != nullptr && esquerda_cheia.contains(nome))
                QCOMPARE(caixa->text(), nome.toLower());
        }
        QCOMPARE(c.janela.txtMorada->toPlainText(), u"morada"_s);
        QCOMPARE(c.janela.txtObs->toPlainText(), u"obs"_s);
    }

    void a_altura_das_notas_leva_as_colunas_ao_mesmo_fundo_data()
    {
        QTest::addColumn<QString>("colunas");
        QTest::addColumn<bool>("com_ano");
        QTest::addColumn<int>("linha");
        QTest::addColumn<int>("altura");
        const QString cheia = esquerda_cheia + u"Obs"_s;
        QTest::newRow("Linha_Card 2") << u"Obs"_s << false << 11 << 3400;
        QTest::newRow("Linha_Card 11") << cheia << false << 11 << 3400;
        QTest::newRow("Linha_Card 12") << cheia + u" Dia Mes"_s << false << 12 << 3000;
        QTest::newRow("Linha_Card 13") << cheia << true << 13 << 2700;
        QTest::newRow("Linha_Card 15") << cheia + u" Morada"_s << false << 15 << 2000;
        QTest::newRow("Linha_Card 16") << cheia + u" Morada Dia Mes"_s << false << 16 << 1635;
        QTest::newRow("Linha_Card 17") << cheia + u" Morada"_s << true << 17 << 1300;
    }
    void a_altura_das_notas_leva_as_colunas_ao_mesmo_fundo()
    {
        QFETCH(QString, colunas);
        QFETCH(bool, com_ano);
        QFETCH(int, linha);
        QFETCH(int, altura);
        ComJanela c;
        c.Mostrar(com_ano ? Com_Aniversario(Preenchido(colunas)) : Preenchido(colunas));
        QCOMPARE(c.janela.txtObs->pos(), Lugar_Da_Linha(linha));
        QCOMPARE(c.janela.txtObs->height(), pixels(altura));
        QVERIFY(!c.janela.txtObs->isHidden());
    }

    void as_linhas_de_um_cartao_nao_ficam_no_seguinte()
    {
        ComJanela c;
        const int cheio = c.s.Novo_Contacto(Com_Aniversario(Preenchido(esquerda_cheia + u"Morada Obs"_s)));
        const int curto = c.Mostrar(Preenchido(u"Fax"_s));
        c.Escolher(cheio);
        QVERIFY(Disposicao(c.janela).endsWith(u"Idade:12 Morada:13 Obs:17"_s));
        c.Escolher(curto); // without a reload, which would empty the card
        QCOMPARE(Disposicao(c.janela), u"Fax:1 Grupo:2"_s);
        QVERIFY(c.janela.txtIdade->text().isEmpty());
        QVERIFY(c.janela.txtMorada->toPlainText().isEmpty());
    }

    void nulo_guarda_a_linha_em_branco_e_vazio_fecha_a()
    {
        ComJanela c;
        Colunas nulos{{u"Nome"_s, u"Nulo"_s}};
        for (const QString &nome : (esquerda_cheia + u"Morada Obs Dia Mes Ano Fotografia"_s).split(u' '))
            nulos.insert(nome, nullptr);
        c.Mostrar(nulos);
        QCOMPARE(Disposicao(c.janela),
                 u"Telefone1:1 Telefone2:2 Fax:3 Telemovel1:4 Telemovel2:5 Telemovel3:6 Email1:7 "
                 u"Email2:8 Website:9 Grupo:10 Aniversario:11 Morada:12 Obs:16"_s);
        QVERIFY(c.janela.txtFax->text().isEmpty());
        QVERIFY(c.janela.txtMorada->toPlainText().isEmpty());
        QVERIFY(Ligados(c.janela, {u"Website"_s, u"visitar_website"_s, u"RightClickWebsite"_s}));
        QVERIFY(Ligados(c.janela, {u"Email"_s, u"enviar_email"_s, u"RightClickEmail"_s}, false));
    }

    // Birthday and age

    void aniversario_com_ano_mostra_data_e_idade()
    {
        ComJanela c;
        c.Mostrar(Com_Aniversario(Preenchido(u""_s)));
        QCOMPARE(c.janela.txtAniversario->text(), u"7 Março 1980"_s);
        QCOMPARE(c.janela.txtIdade->text(), u"46 anos"_s);
    }

    void dia_e_mes_sem_ano_mostram_se_sem_idade()
    {
        ComJanela c;
        c.Mostrar(Com_Aniversario(Preenchido(u""_s), u"7"_s, u"3"_s, u""_s));
        QCOMPARE(c.janela.txtAniversario->text(), u"7 Março"_s);
        QCOMPARE(Disposicao(c.janela), u"Grupo:1 Aniversario:2"_s);
    }

    void cada_mes_tem_o_seu_nome()
    {
        ComJanela c;
        for (int mes = 1; mes <= 12; ++mes) {
            c.Mostrar(Com_Aniversario(Preenchido(u""_s), u"1"_s, QString::number(mes), u""_s));
            QCOMPARE(c.janela.txtAniversario->text(), u"1 "_s + c.s.Texto(13 + mes));
        }
    }

    void um_mes_fora_de_1_a_12_fica_com_o_nome_do_cartao_anterior()
    {
        ComJanela c;
        c.Mostrar(Com_Aniversario(Preenchido(u""_s), u"1"_s, u"5"_s, u""_s));
        for (const QString &mes : {u"0"_s, u"13"_s, u""_s, u"x"_s}) {
            c.Mostrar(Com_Aniversario(Preenchido(u""_s), u"9"_s, mes, u""_s));
            QCOMPARE(c.janela.txtAniversario->text(), u"9 Maio"_s);
        }
    }

    void nascido_este_ano_com_o_aniversario_por_vir_tem_menos_um()
    {
        ComJanela c;
        c.Mostrar(Com_Aniversario(Preenchido(u""_s), u"20"_s, u"12"_s, u"2027"_s));
        QCOMPARE(c.janela.txtIdade->text(), u"-1 "_s + c.s.Texto(50));
        QVERIFY(!c.janela.txtIdade->isHidden());
    }

    void a_idade_conta_se_do_relogio()
    {
        ComJanela c;
        const int id = c.Mostrar(Com_Aniversario(Preenchido(u""_s)));
        c.s.relogio.Acertar({{2027, 3, 7}, {0, 0}});
        c.Escolher(id);
        QCOMPARE(c.janela.txtIdade->text(), u"47 anos"_s);
    }

    // Failures before the picture

    void falha_antes_da_foto_mostra_o_texto_256_data()
    {
        QTest::addColumn<QString>("Dia");
        QTest::addColumn<QString>("Mes");
        QTest::addColumn<QString>("Ano");
        QTest::newRow("ano sem dia") << u""_s << u"3"_s << u"1980"_s;
        QTest::newRow("29 de Fevereiro antes de ano comum") << u"29"_s << u"2"_s << u"1980"_s;
        QTest::newRow("data que nao existe") << u"31"_s << u"4"_s << u"1980"_s;
    }
    void falha_antes_da_foto_mostra_o_texto_256()
    {
        QFETCH(QString, Dia);
        QFETCH(QString, Mes);
        QFETCH(QString, Ano);
        ComJanela c;
        Esperar_Erro_Do_Cartao(c);
        const int id = c.Mostrar(Com_Aniversario(Preenchido(u"Telefone1"_s), Dia, Mes, Ano));
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(c.janela.txtIdade->text().isEmpty());
        QCOMPARE(c.s.geral.IDContacto, id);
        QVERIFY(Ligados(c.janela, {u"Anterior"_s, u"Seguinte"_s, u"cima"_s, u"baixo"_s}, false));
    }

    void um_contacto_que_se_encontrou_pode_ser_editado_e_eliminado_mesmo_sem_cartao()
    {
        ComJanela c;
        QVERIFY(!Editar_E_Eliminar(c.janela));
        Esperar_Erro_Do_Cartao(c);
        c.Mostrar(Sem_Data(u""_s));
        QVERIFY(Editar_E_Eliminar(c.janela));
        QVERIFY(Ligados(c.janela, editar_e_eliminar));
    }

    void um_contacto_que_nao_se_encontrou_nao_pode_ser_editado_nem_eliminado_data()
    {
        QTest::addColumn<QString>("perda"); // what another copy of the program did to the second contact
        QTest::newRow("eliminado") << u"DELETE FROM TblLista WHERE ID=%1"_s;
        QTest::newRow("sem grupo") << u"UPDATE TblLista SET Grupo=777 WHERE ID=%1"_s;
        QTest::newRow("ID a mais") << QString();
    }
    void um_contacto_que_nao_se_encontrou_nao_pode_ser_editado_nem_eliminado()
    {
        QFETCH(QString, perda);
        ComJanela c;
        c.Mostrar(Preenchido(u""_s));
        QVERIFY(Editar_E_Eliminar(c.janela));
        const int perdido = c.s.Novo_Contacto(Preenchido(u""_s));
        c.janela.ListaNomes->AddItem(u"Perdido"_s);
        c.janela.ListaNomes->setItemData(1, perda.isEmpty() ? 32768 : perdido);
        if (!perda.isEmpty()) c.s.Escrever(perda.arg(perdido));
        Esperar_Erro_Do_Cartao(c);
        c.janela.ListaNomes->setListIndex(1);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(!c.janela.cmdEditar->isEnabled() && !c.janela.cmdEliminar->isEnabled());
        QVERIFY(Ligados(c.janela, editar_e_eliminar, false));
    }

    void IDContacto_e_IndiceContacto_mudam_juntos_ou_nenhum()
    {
        ComJanela c;
        const int ana = c.Mostrar(Preenchido(u""_s));
        const int mau = c.s.Novo_Contacto(Sem_Data(u""_s));
        for (const int id : {mau, 32768}) {
            c.janela.ListaNomes->AddItem(u"Outro"_s);
            c.janela.ListaNomes->setItemData(c.janela.ListaNomes->NewIndex(), id);
        }
        Esperar_Erro_Do_Cartao(c);
        c.janela.ListaNomes->setListIndex(1);
        QCOMPARE(c.s.geral.IDContacto, mau);
        QCOMPARE(c.s.geral.IndiceContacto, 1);
        c.Escolher(ana);
        Esperar_Erro_Do_Cartao(c);
        c.janela.ListaNomes->setListIndex(2); // an ID that doesn't fit
        QCOMPARE(c.s.geral.IDContacto, ana);
        QCOMPARE(c.s.geral.IndiceContacto, 0);
    }

    void a_falha_deixa_o_que_ja_estava_preenchido_e_nada_dispoe()
    {
        ComJanela c;
        c.Mostrar(Preenchido(u"Telefone1 Email1"_s));
        const int mau = c.s.Novo_Contacto(Sem_Data(u"Telefone1 Fax Email1 Email2 Morada"_s));
        c.s.Escrever(u"UPDATE TblLista SET Telefone1='novo', Email1='novo' WHERE ID=%1"_s.arg(mau));
        c.janela.ListaNomes->AddItem(u"Mau"_s);
        c.janela.ListaNomes->setItemData(1, mau);
        const QString antes = Disposicao(c.janela);
        Esperar_Erro_Do_Cartao(c);
        c.Escolher(mau);
        QCOMPARE(Disposicao(c.janela), antes);
        QCOMPARE(c.janela.txtTelefone1->text(), u"novo"_s);
        QCOMPARE(c.janela.txtFax->text(), u"fax"_s);
        QCOMPARE(c.janela.txtAniversario->text(), u"31 Abril 1980"_s);
        QCOMPARE(c.janela.txtEmail1->text(), u"email1"_s); // of the card before
        QVERIFY(c.janela.txtMorada->toPlainText().isEmpty());
        QCOMPARE(c.s.geral.IDContacto, mau);
        QCOMPARE(c.s.geral.IndiceContacto, 1);
    }

    void um_ID_acima_de_32767_nao_cabe_e_mostra_o_texto_256()
    {
        ComJanela c;
        const int id = c.s.Novo_Contacto(Preenchido(u"Fax"_s));
        for (const auto &[novo, falha] : {std::pair{32767, false}, {32768, true}}) {
            c.s.Escrever(u"UPDATE TblLista SET ID=%1"_s.arg(novo));
            if (falha) Esperar_Erro_Do_Cartao(c);
            c.lista.Carregar_Tabela(); // a single contact is shown at once
            QCOMPARE(c.s.geral.IDContacto, qint16(32767));
            QCOMPARE(Editar_E_Eliminar(c.janela), !falha);
        }
        QVERIFY(id > 0 && c.s.caixas.Todas_Vistas());
    }

    void um_contacto_cujo_grupo_desapareceu_mostra_o_texto_256()
    {
        ComJanela c;
        c.Mostrar(Preenchido(u"Fax"_s));
        c.s.Escrever(u"DELETE FROM TblGrupos WHERE ID=6"_s);
        Esperar_Erro_Do_Cartao(c);
        c.janela.ListaNomes->setListIndex(0);
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    // Messenger

    void o_estado_do_messenger_escolhe_imagem_e_comandos_data()
    {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<int>("imagem");
        QTest::addColumn<bool>("ligado");
        QTest::newRow("nulo") << u"NULL"_s << 8 << false;
        QTest::newRow("vazio") << u"''"_s << 8 << false;
        QTest::newRow("0") << u"'0'"_s << 8 << false;
        QTest::newRow("1") << u"'1'"_s << 21 << true;
        QTest::newRow("2") << u"'2'"_s << 18 << true;
        QTest::newRow("10") << u"'10'"_s << 19 << true;
        QTest::newRow("18") << u"'18'"_s << 20 << true;
        QTest::newRow("34") << u"'34'"_s << 20 << true;
        QTest::newRow("outro") << u"'99'"_s << 18 << true;
        QTest::newRow("letras") << u"'x'"_s << 18 << true;
    }
    void o_estado_do_messenger_escolhe_imagem_e_comandos()
    {
        QFETCH(QString, codigo);
        QFETCH(int, imagem);
        QFETCH(bool, ligado);
        ComJanela c;
        const int id = c.Mostrar(Preenchido(u""_s));
        // From the other state, so that both directions are seen.
        c.s.Escrever(u"UPDATE TblLista SET MSNMessenger='%1'"_s.arg(ligado ? 0 : 1));
        c.Escolher(id);
        c.s.Escrever(u"UPDATE TblLista SET MSNMessenger="_s + codigo);
        c.Escolher(id);
        QCOMPARE(c.janela.messenger->property("Image").toInt(), imagem);
        QVERIFY(!c.janela.messenger->icon().isNull());
        QVERIFY(QFile::exists(u":/imagens/toolbar/messenger_%1.svg"_s.arg(imagem)));
        QVERIFY(Ligados(c.janela, {u"messenger"_s, u"mnuMessenger"_s, u"RightClickMessenger"_s}, ligado));
    }

    void cada_cartao_recomeca_o_TimerStatusOfContact()
    {
        ComJanela c;
        Timer &timer = c.s.geral.temporizadores.TimerStatusOfContact;
        timer.setTimerType(Qt::PreciseTimer); // the coarse kind moves its end about
        QVERIFY(!timer.Enabled());
        const int id = c.Mostrar(Preenchido(u""_s));
        QVERIFY(timer.Enabled());
        QTest::qWait(60);
        const int antes = timer.remainingTime();
        c.Escolher(id);
        QVERIFY(timer.Enabled());
        QVERIFY(timer.remainingTime() > antes);
    }

    // Photograph

    void sem_fotografia_mostra_a_foto_por_omissao_na_caixa_inteira()
    {
        ComJanela c;
        c.Mostrar(Preenchido(u""_s));
        QVERIFY(Mostra_A_Foto_Por_Omissao(c));
    }

    void so_outra_folga_desempacota_outra_vez_a_fotografia()
    {
        ComJanela c;
        c.Mostrar(Preenchido(u""_s));
        auto &cartao = *c.janela.findChild<CartaoContacto *>();
        const auto desenho = [&c] { return c.janela.Thumb->pixmap().cacheKey(); };
        cartao.Tomar_Folga({10, 20, 30, 40});
        const qint64 primeiro = desenho();
        const QRect lugar = c.janela.Thumb->geometry();
        cartao.Tomar_Folga({10, 20, 30, 40});
        QCOMPARE(desenho(), primeiro);
        cartao.Tomar_Folga({10, 20, 30, 50});
        QVERIFY(desenho() != primeiro);
        QCOMPARE(c.janela.Thumb->geometry(), lugar); // only the notes grow downwards
    }

    void um_nome_de_ficheiro_le_se_da_pasta_do_programa()
    {
        ComJanela c;
        Gravar_Imagem(c.s.Ficheiro(u"minha.png"_s), {60, 40});
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, u"minha.png"_s}});
        QCOMPARE(Cor_Da_Foto(c.janela), qRgb(200, 0, 0));
        // 900 by 600 twips in the middle of the box of 2415 by 2325 at 5280, 390
        QCOMPARE(c.janela.Thumb->geometry(), pixelRect(6037.5, 1252.5, 900, 600));
        QVERIFY(Editar_E_Eliminar(c.janela));
    }

    void uma_fotografia_da_base_mostra_se_como_a_de_um_ficheiro()
    {
        ComJanela c;
        const QString nome = Por_Na_Base(c.s, {60, 40});
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, nome}});
        QCOMPARE(Cor_Da_Foto(c.janela), qRgb(200, 0, 0));
        QCOMPARE(c.janela.Thumb->geometry(), pixelRect(6037.5, 1252.5, 900, 600)); // as that of a file
        QVERIFY(Editar_E_Eliminar(c.janela));
        // the large view shows this very picture
        const Picture imagem = c.janela.findChild<CartaoContacto *>()->Image1();
        QCOMPARE(imagem.naturalSize(), QSize(60, 40));
        QCOMPARE(imagem.image({6, 4}).pixel(3, 2), qRgb(200, 0, 0));
    }

    void uma_que_a_base_nao_tem_ou_estragada_da_a_foto_por_omissao_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nao ha") << QByteArray();
        QTest::newRow("nao e imagem") << QByteArray("nada de imagem");
        QTest::newRow("cortada") << Bytes_De_Imagem({60, 40}).first(40);
    }
    void uma_que_a_base_nao_tem_ou_estragada_da_a_foto_por_omissao()
    {
        QFETCH(QByteArray, bytes);
        ComJanela c;
        if (!bytes.isEmpty()) FotografiasDaBase(c.s.geral.de).Guardar(u"bd:x.png"_s, bytes);
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, u"bd:x.png"_s}, {u"Fax"_s, u"1"_s}});
        QVERIFY(Mostra_A_Foto_Por_Omissao(c));
        QCOMPARE(Disposicao(c.janela), u"Fax:1 Grupo:2"_s);
    }

    void um_caminho_com_barras_invertidas_le_se_abaixo_da_pasta_do_programa_data()
    {
        QTest::addColumn<QString>("caminho");
        QTest::newRow("uma pasta") << u"fotos\\ana.png"_s;
        QTest::newRow("daqui") << u".\\fotos\\ana.png"_s;
        QTest::newRow("desde a raiz de um disco que nao se sabe") << u"\\fotos\\ana.png"_s;
    }
    void um_caminho_com_barras_invertidas_le_se_abaixo_da_pasta_do_programa()
    {
        QFETCH(QString, caminho);
        ComJanela c;
        QVERIFY(QDir(c.s.Pasta()).mkdir(u"fotos"_s));
        Gravar_Imagem(c.s.Ficheiro(u"fotos/ana.png"_s), {60, 40});
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, caminho}});
        QCOMPARE(Cor_Da_Foto(c.janela), qRgb(200, 0, 0));
        // the large view shows this very picture
        QCOMPARE(c.janela.findChild<CartaoContacto *>()->Image1().naturalSize(), QSize(60, 40));
    }

    void uma_foto_grande_desce_por_um_divisor_inteiro()
    {
        ComJanela c;
        Gravar_Imagem(c.s.Ficheiro(u"larga.png"_s), {162, 100}); // 2430 by 1500 twips: one pixel too wide
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, u"larga.png"_s}});
        QCOMPARE(c.janela.Thumb->geometry(), pixelRect(5880, 1177.5, 1215, 750));
    }

    void um_caminho_completo_le_se_como_esta_data()
    {
        QTest::addColumn<QString>("caminho");
        QTest::newRow("com unidade") << u"C:\\retrato.png"_s;
        QTest::newRow("de rede") << u"\\\\servidor\\retrato.png"_s;
    }
    void um_caminho_completo_le_se_como_esta()
    {
        if (!outros_nomes::ha_nomes_com_barra) QSKIP("no file's name holds a backslash here");
        QFETCH(QString, caminho);
        ComJanela c;
        const QTemporaryDir outra;
        const QString antes = QDir::currentPath();
        QVERIFY(QDir::setCurrent(outra.path()));
        Gravar_Imagem(caminho, {60, 40}, qRgb(0, 0, 200));
        Gravar_Imagem(c.s.geral.Ficheiro(caminho), {60, 40}, qRgb(200, 0, 0));
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, caminho}});
        QVERIFY(QDir::setCurrent(antes));
        QCOMPARE(Cor_Da_Foto(c.janela), qRgb(0, 0, 200));
    }

    void um_caminho_desde_a_raiz_le_se_como_esta()
    {
        ComJanela c;
        const QTemporaryDir outra;
        const QString caminho = outra.filePath(u"retrato.png"_s);
        Gravar_Imagem(caminho, {60, 40}, qRgb(0, 0, 200));
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, caminho}});
        QCOMPARE(Cor_Da_Foto(c.janela), qRgb(0, 0, 200));
    }

    void uma_foto_que_nao_abre_da_a_foto_por_omissao_sem_mensagem_data()
    {
        QTest::addColumn<bool>("existe");
        QTest::addColumn<bool>("com_cabecalho");
        QTest::newRow("nao existe") << false << false;
        QTest::newRow("nao e imagem") << true << false;
        QTest::newRow("cortada depois do cabecalho") << true << true;
    }
    void uma_foto_que_nao_abre_da_a_foto_por_omissao_sem_mensagem()
    {
        QFETCH(bool, existe);
        QFETCH(bool, com_cabecalho);
        ComJanela c;
        const QString ficheiro = c.s.Ficheiro(u"ma.png"_s);
        if (com_cabecalho) {
            Gravar_Imagem(ficheiro, {60, 40});
            QVERIFY(QFile::resize(ficheiro, 40));
        } else if (existe) {
            QFile texto(ficheiro);
            QVERIFY(texto.open(QIODevice::WriteOnly) && texto.write("nada de imagem") > 0);
        }
        c.Mostrar({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, u"ma.png"_s}, {u"Fax"_s, u"1"_s}});
        QVERIFY(Mostra_A_Foto_Por_Omissao(c));
        QCOMPARE(Disposicao(c.janela), u"Fax:1 Grupo:2"_s);
        QVERIFY(Editar_E_Eliminar(c.janela));
    }

    void sem_semfoto_big_um_clique_acaba_na_caixa_de_erro()
    {
        ComJanela c;
        c.s.Novo_Contacto(Preenchido(u"Fax"_s));
        c.s.Novo_Contacto(Preenchido(u"Fax"_s));
        c.lista.Carregar_Tabela();
        c.janela.show();
        QVERIFY(QFile::remove(c.s.Ficheiro(u"semfoto_big.jpg"_s)));
        c.s.caixas.Espera_Erro(Failure::InvalidPicture);
        c.Carregar_Na_Linha(0);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(!Editar_E_Eliminar(c.janela));
        QVERIFY(!c.s.processo.Terminou());
    }

    void falha_ao_dispor_volta_a_foto_por_omissao_e_dispoe_outra_vez()
    {
        ComJanela c;
        Gravar_Imagem(c.s.Ficheiro(u"minha.png"_s), {60, 40});
        c.s.Novo_Contacto({{u"Nome"_s, u"A"_s}, {u"Fotografia"_s, u"minha.png"_s}, {u"Fax"_s, u"1"_s}});
        c.s.Novo_Contacto({{u"Nome"_s, u"B"_s}});
        c.lista.Carregar_Tabela();
        c.janela.show();
        // Without its row the card can't be laid out. It is back once the picture has fallen back.
        const QString id = QString::number(c.janela.ListaNomes->ItemData(0));
        QStringList passos;
        NaMudancaDaFoto mudanca(
            *c.janela.Thumb,
            [&] {
                passos << u"fecha"_s;
                c.s.geral.de.Rs("cmdEditarNome").Close();
            },
            [&] {
                passos << u"abre"_s;
                c.s.geral.de.Abrir("cmdEditarNome", {id});
            });
        c.janela.ListaNomes->setListIndex(0);
        QCOMPARE(passos, (QStringList{u"fecha"_s, u"abre"_s}));
        QVERIFY(Mostra_A_Foto_Por_Omissao(c));
        QCOMPARE(Disposicao(c.janela), u"Fax:1 Grupo:2"_s);
        QVERIFY(Editar_E_Eliminar(c.janela));
    }

    // Commands

    void um_cartao_liga_os_comandos_do_contacto()
    {
        ComJanela c;
        const QStringList comandos{u"EliminarContacto"_s,  u"EditarContacto"_s,  u"Anterior"_s, u"Seguinte"_s,
                                   u"eliminar_contacto"_s, u"editar_contacto"_s, u"cima"_s,     u"baixo"_s};
        QVERIFY(Ligados(c.janela, comandos, false));
        c.s.geral.SessaoActual = {}; // rights are asked for when the command runs
        const int id = c.Mostrar(Preenchido(u""_s));
        QVERIFY(Ligados(c.janela, comandos));
        QVERIFY(Editar_E_Eliminar(c.janela));
        QCOMPARE(c.s.geral.IDContacto, id);
        QCOMPARE(c.s.geral.de.Rs("cmdEditarNome").State(), Recordset::Closed);
    }

    void IndiceContacto_e_a_linha_do_contacto_no_cartao()
    {
        ComJanela c;
        c.s.Novo_Contacto({{u"Nome"_s, u"A"_s}});
        c.Mostrar({{u"Nome"_s, u"B"_s}});
        QCOMPARE(c.s.geral.IndiceContacto, 1);
    }

    void o_mail_liga_os_seus_comandos_data()
    {
        QTest::addColumn<QString>("colunas");
        QTest::addColumn<bool>("ligado");
        QTest::newRow("nenhum") << u"Fax"_s << false;
        QTest::newRow("o primeiro") << u"Email1"_s << true;
        QTest::newRow("o segundo") << u"Email2"_s << true;
    }
    void o_mail_liga_os_seus_comandos()
    {
        QFETCH(QString, colunas);
        QFETCH(bool, ligado);
        ComJanela c;
        c.Mostrar(Preenchido(ligado ? u""_s : u"Email1 Email2"_s));
        c.Mostrar(Preenchido(colunas));
        QVERIFY(Ligados(c.janela, {u"Email"_s, u"enviar_email"_s, u"RightClickEmail"_s}, ligado));
    }

    void o_website_liga_os_seus_comandos()
    {
        ComJanela c;
        const QStringList comandos{u"Website"_s, u"visitar_website"_s, u"RightClickWebsite"_s};
        const int com = c.Mostrar(Preenchido(u"Website"_s));
        QVERIFY(Ligados(c.janela, comandos));
        c.Mostrar(Preenchido(u""_s));
        QVERIFY(Ligados(c.janela, comandos, false));
        c.Escolher(com);
        QVERIFY(Ligados(c.janela, comandos));
    }
};

MORVEX_TESTE(TestCartaoContacto)
#include "test_CartaoContacto.moc"
