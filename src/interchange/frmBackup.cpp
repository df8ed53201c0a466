#include "interchange/frmBackup.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/ValorLongo.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "store/CleanCopy.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace
{
const auto seccao = u"basedados"_s;
const auto chave = u"caminhobackup"_s;
} // namespace

frmBackup::frmBackup(Geral &geral, Platform &platform, QWidget *dono)
    : QDialog(dono), geral_(geral), platform_(platform)
{
    if (Fecha_Se()) pausa_.emplace(geral.temporizadores);
    setupUi(this);
    scale::apply(*this);
    connect(cmdProcurar, &QAbstractButton::clicked, this, &frmBackup::cmdProcurar_Click);
    connect(cmdIniciar, &QAbstractButton::clicked, this, &frmBackup::cmdIniciar_Click);
    connect(cmdSair, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmBackup::Form_Unload);

    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(254)));
    Label1->setText(geral_.Ler_Idioma(253));
    cmdIniciar->setText(geral_.Ler_Idioma(229));
    cmdSair->setText(geral_.Ler_Idioma(136));
    cmdProcurar->setToolTip(withoutMnemonic(geral_.Ler_Idioma(69)));
    cmdProcurar->setAccessibleName(cmdProcurar->toolTip());
    ProgressBar1->setAccessibleName(windowTitle());
    keepPlaceWhenHidden(*ProgressBar1);
    ProgressBar1->hide();
    txtCaminhoBackup->setText(geral_.ini.Ler_Ini(seccao, chave));
    cmdIniciar->setEnabled(!txtCaminhoBackup->text().isEmpty());
}

void frmBackup::Form_Unload()
{
    if (pausa_) pausa_->Retomar();
}

// A file is nobody's while it is copied.
bool frmBackup::Fecha_Se() const { return !geral_.de.Num_Servidor(); }

// A cancel empties the box and lets the copy be asked for all the same.
void frmBackup::cmdProcurar_Click()
{
    txtCaminhoBackup->setText(GetBrowseDirectory());
    cmdIniciar->setEnabled(true);
}

// The folder with a separator at its end, since the name of the copy is simply put behind it.
QString frmBackup::GetBrowseDirectory()
{
    const auto pasta =
        platform_.dialogs.folder(u"Choose a directory from the list."_s, QDir::rootPath(), this);
    if (!pasta) return {};
    return pasta->endsWith(u'/') ? *pasta : *pasta + u'/';
}

QString frmBackup::Copia_De_Trabalho() const { return geral_.Ficheiro(u"MorvexCopy.mdb"_s); }

QString frmBackup::Alvo() const { return txtCaminhoBackup->text() + u"Morvex.mdb"_s; }

void frmBackup::Apagar_Copia_De_Trabalho()
{
    if (QFile::exists(Copia_De_Trabalho())) QFile::remove(Copia_De_Trabalho());
}

void frmBackup::cmdIniciar_Click()
{
    Apagar_Copia_De_Trabalho();
    if (txtCaminhoBackup->text().isEmpty()) {
        platform_.boxes.show(geral_.Ler_Idioma(253), box::stop, windowTitle(), this);
        return;
    }
    if (const QString pasta = txtCaminhoBackup->text(); !Cabe_No_Ini(pasta))
        return Recusar_Valor_Longo(pasta, geral_, platform_, this);
    const auto sem_resto = qScopeGuard([this] { Apagar_Copia_De_Trabalho(); });
    if (Fecha_Se()) geral_.de.Fechar_Ligacao();
    onFailure([this] { Copiar(); }, [this](const Failure &falha) { Mostrar_Falha(falha); });
}

void frmBackup::Copiar()
{
    ProgressBar1->show();
    ProgressBar1->setValue(10); // which paints it at once, here and below
    Fazer_Copia_De_Trabalho();
    ProgressBar1->setValue(50);
    if (Fecha_Se() && isSameFile(geral_.de.Base().Caminho(), Alvo()))
        throw Failure(Failure::PathFileAccess, Alvo(), u"Source and target are one file: %1"_s.arg(Alvo()));
    copyOver(Copia_De_Trabalho(), Alvo());
    ProgressBar1->setValue(90);
    Apagar_Copia_De_Trabalho();
    ProgressBar1->setValue(100);
    ProgressBar1->hide();
    if (Fecha_Se()) geral_.de.Reabrir_Ligacao();
    platform_.boxes.show(geral_.Ler_Idioma(255), box::information, windowTitle(), this);
    geral_.ini.Escrever_Ini(seccao, chave, txtCaminhoBackup->text());
}

void frmBackup::Fazer_Copia_De_Trabalho()
{
    if (Fecha_Se()) return compactDatabase(geral_.de.Base().Caminho(), Copia_De_Trabalho());
    geral_.de.Copiar_Para(Copia_De_Trabalho(), [this](int feito) { Mostrar_Avanco(feito); });
}

// From where the copy begins on the bar to where the file is put in its place. Alarms ring meanwhile; nobody
// clicks.
void frmBackup::Mostrar_Avanco(int percentagem)
{
    constexpr int inicio = 10;
    constexpr int fim = 50;
    ProgressBar1->setValue(inicio + (fim - inicio) * percentagem / 100);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmBackup::Mostrar_Falha(const Failure &falha)
{
    platform_.boxes.show(
        u"error #%1 app %2\r%3"_s.arg(falha.number()).arg(falha.source(), falha.description()), box::ok,
        u"Error"_s, this);
    ProgressBar1->hide();
    if (Fecha_Se()) geral_.de.Reabrir_Ligacao();
}
