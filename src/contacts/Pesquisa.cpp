#include "contacts/Pesquisa.h"

#include "contacts/frmProcurar.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Platform.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_nada_para_procurar = 60;
}

Pesquisa::Pesquisa(Janela &janela, Geral &geral, Platform &platform)
    : QObject(&janela), geral_(geral), platform_(platform), janela_(janela)
{
    for (QAction *comando : {janela.procurar, janela.SystemTrayProcurar})
        connect(comando, &QAction::triggered, this, &Pesquisa::procurar_Click);
}

Pesquisa::~Pesquisa() = default;

void Pesquisa::procurar_Click()
{
    if (janela_.ListaNomes->ListCount() == 0) {
        platform_.boxes.show(geral_.Ler_Idioma(texto_nada_para_procurar), box::stop, janela_.windowTitle(),
                             &janela_);
        return;
    }
    if (!form_) {
        form_ = std::make_unique<frmProcurar>(janela_, geral_, platform_);
        connect(form_.get(), &frmProcurar::Trazer_Main, this, &Pesquisa::Trazer_Main);
    }
    if (form_->Aberta())
        form_->close();
    else
        form_->Abrir();
}
