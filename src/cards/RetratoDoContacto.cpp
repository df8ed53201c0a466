#include "cards/RetratoDoContacto.h"

#include "data/Geral.h"
#include "platform/Caption.h"
#include "platform/Failure.h"
#include "platform/Picture.h"

#include <algorithm>
#include <QTextDocument>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace
{
constexpr int maior_fotografia = 96; // pixels
} // namespace

RetratoDoContacto::RetratoDoContacto(Geral &geral, QTextEdit &campo)
    : campo_(campo),
      cursor_(campo.document()),
      dois_pontos_(geral.IdiomaActual == "FrancesFR"_L1 ? u"\u00a0: "_s : u": "_s)
{
    constexpr std::array<std::pair<Coluna, qint16>, 13> textos{{{Coluna::Nome, 27},
                                                                {Coluna::Telefone1, 28},
                                                                {Coluna::Telefone2, 29},
                                                                {Coluna::Fax, 64},
                                                                {Coluna::Telemovel1, 30},
                                                                {Coluna::Telemovel2, 31},
                                                                {Coluna::Telemovel3, 32},
                                                                {Coluna::Dia, 38},
                                                                {Coluna::Email1, 304},
                                                                {Coluna::Email2, 304},
                                                                {Coluna::Website, 34},
                                                                {Coluna::Morada, 36},
                                                                {Coluna::Obs, 37}}};
    for (const auto &[coluna, numero] : textos)
        rotulos_.push_back({coluna, withoutMnemonic(geral.Ler_Idioma(numero))});
    campo_.document()->setUndoRedoEnabled(false);
}

void RetratoDoContacto::Limpar()
{
    campo_.clear();
    cursor_ = QTextCursor(campo_.document());
}

void RetratoDoContacto::Titulo(const QString &texto)
{
    QTextCharFormat formato;
    formato.setFontUnderline(true);
    if (!campo_.document()->isEmpty()) cursor_.insertBlock();
    cursor_.insertText(texto, formato);
    cursor_.insertBlock();
}

void RetratoDoContacto::Contacto(const ColunasDoContacto &colunas, const std::vector<Coluna> &mudadas)
{
    for (const Rotulo &rotulo : rotulos_) {
        QString valor = colunas[rotulo.coluna];
        if (rotulo.coluna == Coluna::Dia && !valor.isEmpty())
            for (const Coluna parte : {Coluna::Mes, Coluna::Ano})
                if (!colunas[parte].isEmpty()) valor += u'-' + colunas[parte];
        const bool mudada = std::find(mudadas.begin(), mudadas.end(), rotulo.coluna) != mudadas.end();
        Linha(rotulo.texto, valor, mudada);
    }
}

void RetratoDoContacto::Linha(const QString &rotulo, const QString &valor, bool mudada)
{
    if (valor.isEmpty()) return;
    QTextCharFormat formato;
    formato.setFontWeight(mudada ? QFont::Bold : QFont::Normal);
    cursor_.insertText(rotulo + dois_pontos_, QTextCharFormat());
    cursor_.insertText(valor, formato);
    cursor_.insertBlock();
}

void RetratoDoContacto::Fotografia(const QByteArray &bytes)
{
    skipFailure([&] { // what is no picture is not shown
        const Picture fotografia(bytes, QString());
        QSize tamanho = fotografia.naturalSize();
        if (tamanho.width() > maior_fotografia || tamanho.height() > maior_fotografia)
            tamanho.scale(maior_fotografia, maior_fotografia, Qt::KeepAspectRatio);
        cursor_.insertImage(fotografia.image(tamanho.expandedTo({1, 1})));
        cursor_.insertBlock();
    });
}

void RetratoDoContacto::Texto(const QString &texto)
{
    cursor_.insertText(texto, QTextCharFormat());
    cursor_.insertBlock();
}

void RetratoDoContacto::Acabar() { campo_.moveCursor(QTextCursor::Start); }
