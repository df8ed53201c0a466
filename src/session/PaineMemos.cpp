#include "session/PaineMemos.h"

#include "controls/Contrast.h"
#include "data/Geral.h"
#include "platform/Platform.h"
#include "session/OmissaoDosMemos.h"
#include "ui_frmOpcoes.h"

using namespace Qt::StringLiterals;

PaineMemos::PaineMemos(QDialog &opcoes, const Ui::frmOpcoes &controlos, Geral &geral, Platform &platform)
    : QObject(&opcoes), opcoes_(opcoes), controlos_(controlos), geral_(geral), platform_(platform)
{
    connect(controlos_.cmdFonte, &QPushButton::clicked, this, &PaineMemos::cmdFonte_Click);
    connect(controlos_.cmdCor, &QPushButton::clicked, this, &PaineMemos::cmdCor_Click);
}

void PaineMemos::Preencher()
{
    QPlainTextEdit &amostra = *controlos_.txtMemo;
    amostra.setFont(omissao_dos_memos::Fonte(geral_));
    QPalette palette = amostra.palette();
    setGround(palette, omissao_dos_memos::Cor(geral_));
    amostra.setPalette(palette);
}

void PaineMemos::cmdFonte_Click()
{
    const auto fonte = platform_.dialogs.font(omissao_dos_memos::Fonte(geral_), &opcoes_);
    if (!fonte) return;
    omissao_dos_memos::Guardar_Fonte(*fonte, geral_);
    Preencher();
}

void PaineMemos::cmdCor_Click()
{
    const auto cor = platform_.dialogs.colour(omissao_dos_memos::Cor(geral_), &opcoes_);
    if (!cor) return;
    omissao_dos_memos::Guardar_Cor(*cor, geral_);
    Preencher();
}

void PaineMemos::Escrever()
{
    const QPlainTextEdit &amostra = *controlos_.txtMemo;
    omissao_dos_memos::Guardar_Fonte(amostra.font(), geral_);
    omissao_dos_memos::Guardar_Cor(amostra.palette().color(QPalette::Base), geral_);
    const std::pair<QString, QString> valores[]{{u"fontname"_s, geral_.MemoFontName},
                                                {u"fontsize"_s, geral_.MemoFontSize},
                                                {u"fontbold"_s, geral_.MemoFontBold},
                                                {u"fontitalic"_s, geral_.MemoFontItalic},
                                                {u"corfundo"_s, geral_.MemoCorFundo}};
    for (const auto &[chave, valor] : valores)
        geral_.ini.Escrever_Ini(u"memos"_s, chave, valor);
}
