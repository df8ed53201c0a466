#include "contacts/FotografiaNoEditor.h"

#include "contacts/EntradaDeFotografia.h"
#include "contacts/Fotografia.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "data/ValorLongo.h"
#include "platform/Failure.h"
#include "platform/Picture.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

#include <functional>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr QRectF lugar_da_foto(7305, 870, 1125, 1080); // in twips

// A picture that is too large for its place shrinks in proportion; a smaller one stays as it is.
QRectF Lugar_Da_Foto(QSizeF natural)
{
    const bool cabe = natural.width() <= lugar_da_foto.width() && natural.height() <= lugar_da_foto.height();
    QRectF lugar({}, cabe ? natural : natural.scaled(lugar_da_foto.size(), Qt::KeepAspectRatio));
    lugar.moveCenter(lugar_da_foto.center());
    return lugar;
}

QString Filtro(const QString &todas_as_imagens)
{
    return todas_as_imagens + u"|*.bmp;*.dib;*.gif;*.jpg;*.png;*.wmf;*.emf;*ico;*.cur|Bitmaps "
                              "(*.bmp;*.dib)|*.bmp;*.dib|GIF "
                              "(*.gif)|*.gif|JPEG "
                              "(*.jpg)|*.jpg|PNG "
                              "(*.png)|*.png|Metafiles "
                              "(*.wmf;*.emf)|*.wmf;*.emf|Icons "
                              "(*.ico;*.cur)|*.ico;*.cur"_s;
}

// Where the dialog begins: where the last picture was, or where the desktop keeps pictures.
QString Pasta_De_Partida(const Geral &geral)
{
    return geral.UltimaPastaFotos.isEmpty()
               ? QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)
               : geral.UltimaPastaFotos;
}

QString Pasta_Do_Ficheiro(const QString &FileName) { return FileName.left(FileName.lastIndexOf(u'/') + 1); }
} // namespace

FotografiaNoEditor::FotografiaNoEditor(QDialog &form, const Controlos &controlos, Geral &geral,
                                       Platform &platform)
    : QObject(&form),
      form_(form),
      txtFotografia(controlos.txtFotografia),
      Thumb(controlos.Thumb),
      cmd_foto(controlos.cmd_foto),
      geral_(geral),
      platform_(platform),
      entrada_(new EntradaDeFotografia(form, Thumb)),
      nova_(geral, geral.de.Num_Servidor() ? FotografiaNova::Onde::Base : FotografiaNova::Onde::Ficheiro)
{
    connect(&cmd_foto, &QPushButton::clicked, this, &FotografiaNoEditor::cmd_foto_Click);
    connect(entrada_, &EntradaDeFotografia::Veio, this, &FotografiaNoEditor::Veio);
}

void FotografiaNoEditor::Legendar(const QString &nome)
{
    cmd_foto.setText(geral_.Ler_Idioma(44));
    entrada_->Legendar(spokenLanguage(geral_.IdiomaActual));
    Thumb.setAccessibleName(nome);
}

void FotografiaNoEditor::Carregar()
{
    skipFailure([&] { Mostrar(Picture(geral_.Ficheiro(u"semfoto_small.jpg"_s))); });
}

void FotografiaNoEditor::Comecar()
{
    antes_ = {txtFotografia.text()};
    Mostrar_A_Do_Contacto();
}

void FotografiaNoEditor::Mostrar(const Picture &imagem)
{
    Mostrar_Fotografia(Thumb, imagem, Lugar_Da_Foto(QSizeF(imagem.naturalSize()) * twipsPerPixel));
}

void FotografiaNoEditor::Mostrar_A_Do_Contacto()
{
    if (txtFotografia.text().isEmpty()) return;
    onFailure([&] { Mostrar(Imagem(txtFotografia.text())); },
              [&](const Failure &) { Mostrar(Picture(geral_.Ficheiro(u"fotoerro_small.jpg"_s))); });
}

void FotografiaNoEditor::Retomar()
{
    const QString Fotografia = txtFotografia.text();
    if (E_Da_Base(Fotografia) && !skipFailure([&] { Imagem(Fotografia); }))
        txtFotografia.setText(antes_.value(0));
    Mostrar_A_Do_Contacto();
}

Picture FotografiaNoEditor::Imagem(const QString &Fotografia) const
{
    return nova_.Por_Guardar(Fotografia) ? nova_.Imagem(Fotografia) : Imagem_No_Editor(geral_, Fotografia);
}

void FotografiaNoEditor::cmd_foto_Click()
{
    const auto FileName =
        platform_.dialogs.openFile(Filtro(geral_.Ler_Idioma(1)), Pasta_De_Partida(geral_), &form_);
    if (FileName) Tomar(*FileName);
}

// A box inside of a drop would hold up the program that the picture comes from, so it waits.
void FotografiaNoEditor::Veio(const QMimeData &dados)
{
    std::function<void()> depois;
    try {
        depois = [this, caminho = nova_.Caminho(dados)] {
            nova_.Feita_Aqui(caminho) ? Por(caminho) : Tomar(caminho);
        };
    } catch (const FotografiaRecusada &recusa) {
        depois = [this, recusa] { Recusar(recusa); };
    }
    QMetaObject::invokeMethod(this, depois, Qt::QueuedConnection);
}

void FotografiaNoEditor::Recusar(const FotografiaRecusada &recusa)
{
    platform_.boxes.show(recusa.Texto(spokenLanguage(geral_.IdiomaActual)), box::stop, form_.windowTitle(),
                         &form_);
}

// A file that a person has chosen. The next choice begins in its folder.
void FotografiaNoEditor::Tomar(const QString &FileName)
{
    const QString pasta = Pasta_Do_Ficheiro(FileName);
    if (!Cabe_No_Ini(pasta)) return Recusar_Valor_Longo(pasta, geral_, platform_, &form_);
    geral_.UltimaPastaFotos = pasta;
    geral_.ini.Escrever_Ini(u"fotografias"_s, u"lastpathpic"_s, geral_.UltimaPastaFotos);
    try {
        Por(nova_.De_Ficheiro(FileName));
    } catch (const FotografiaRecusada &recusa) {
        Recusar(recusa);
    }
}

void FotografiaNoEditor::Por(const QString &Fotografia)
{
    txtFotografia.setText(Fotografia);
    onFailure(
        [&] {
            Mostrar(nova_.Imagem(Fotografia));
            Q_EMIT Escolhida();
        },
        [&](const Failure &) { Mostrar(Picture(geral_.Ficheiro(u"semfoto_small.jpg"_s))); });
}

bool FotografiaNoEditor::Por_Guardar() const { return nova_.Por_Guardar(txtFotografia.text()); }

void FotografiaNoEditor::Guardar(const QString &Fotografia) { nova_.Guardar_Na_Base(Fotografia); }

void FotografiaNoEditor::Vencida(const QString &Fotografia) { antes_ << Fotografia; }

void FotografiaNoEditor::Ficou(const QString &Fotografia) { ficou_ = Fotografia; }

void FotografiaNoEditor::Abandonar_As_De_Antes()
{
    for (const QString &Fotografia : std::as_const(antes_))
        skipFailure([&] { nova_.Abandonar(Fotografia); });
}

void FotografiaNoEditor::Arrumar()
{
    nova_.Arrumar(form_.result() == QDialog::Accepted ? ficou_ : QString());
}
