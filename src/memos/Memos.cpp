#include "memos/Memos.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Tocar_Som.h"
#include "janela/Janela.h"
#include "memos/frmMemo.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <QAction>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace
{
constexpr int maximo_de_notas = 100;
constexpr int degrau = 24;  // pixels between the corners of two new notes, at the standard
constexpr int degraus = 10; // then they begin anew at the top
} // namespace

Memos::Memos(Janela &janela, Geral &geral, Platform &platform)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform)
{
    for (QAction *comando : {janela.Memo, janela.memo, janela.SystemTrayMemo})
        connect(comando, &QAction::triggered, this, &Memos::Memo_Click);
}

Memos::~Memos()
{
    for (const QPointer<frmMemo> &nota : notas_)
        delete nota;
}

void Memos::Restaurar()
{
    Recordset &rs = geral_.de.Abrir("cmdListarMemos", {geral_.SessaoActual.IdUtilizador});
    for (int indice = 1; indice <= maximo_de_notas && !rs.Eof(); ++indice, rs.MoveNext())
        skipFailure([&] { Abrir([&](frmMemo &nota) { nota.Restaurar(rs); }); });
    rs.Close();
}

void Memos::Seguir()
{
    por_seguir_ = false;
    QStringList linhas;
    Recordset rs = geral_.de.Abrir("cmdListarMemos", {geral_.SessaoActual.IdUtilizador}); // a save closes the other
    for (int indice = 1; indice <= maximo_de_notas && !rs.Eof(); ++indice, rs.MoveNext())
        skipFailure([&] {
            linhas << rs.Fields("ID").text();
            Seguir_Linha(rs);
        });
    Fechar_Sem_Linha(linhas);
}

frmMemo *Memos::Nota(const QString &ID) const
{
    for (const QPointer<frmMemo> &nota : notas_)
        if (nota && nota->isVisible() && nota->ID() == ID) return nota;
    return nullptr;
}

void Memos::Seguir_Linha(const Recordset &rs)
{
    frmMemo *nota = Nota(rs.Fields("ID").text());
    if (nota == nullptr)
        return Abrir([&](frmMemo &nova) {
            nova.setAttribute(Qt::WA_ShowWithoutActivating);
            nova.Restaurar(rs);
        });
    if (nota->Em_Uso())
        por_seguir_ = true;
    else
        nota->Seguir(rs);
}

void Memos::Fechar_Sem_Linha(const QStringList &linhas)
{
    for (const QPointer<frmMemo> &nota : notas_) {
        if (!nota || !nota->isVisible() || nota->ID().isEmpty() || linhas.contains(nota->ID())) continue;
        if (nota->Em_Uso()) {
            nota->Perder_Linha();
        } else {
            nota->hide();
            nota->deleteLater();
        }
    }
}

void Memos::Largada_Do_Teclado()
{
    if (por_seguir_) skipFailure([this] { Seguir(); });
}

void Memos::Guardar_O_Que_Falta()
{
    for (const QPointer<frmMemo> &nota : notas_)
        if (nota) nota->Guardar_Se_Mudou();
}

void Memos::Memo_Click()
{
    const QString titulo =
        platform_.dialogs.input(geral_.Ler_Idioma(88), u"Memo"_s, &janela_).value_or(QString());
    if (titulo.isEmpty()) return;
    Tocar_Som(platform_.sound, geral_.Ficheiro(u"memo.wav"_s));
    Abrir([&](frmMemo &nota) { nota.Criar(titulo, Lugar_Da_Proxima()); });
}

// A note that cannot be shown is gone again.
void Memos::Abrir(const std::function<void(frmMemo &)> &mostrar)
{
    auto nota = std::make_unique<frmMemo>(geral_, platform_);
    connect(nota.get(), &frmMemo::Largada_Do_Teclado, this, &Memos::Largada_Do_Teclado, Qt::QueuedConnection);
    mostrar(*nota);
    notas_.emplace_back(nota.release());
}

QPoint Memos::Lugar_Da_Proxima() const
{
    const int passo = static_cast<int>(notas_.size()) % degraus * scale::scaled(degrau);
    const QRect ecra = janela_.screen()->availableGeometry();
    return ecra.topLeft() + QPoint(ecra.width() / 3 + passo, ecra.height() / 3 + passo);
}
