#include "contacts/Pesquisa.h"

#include "contacts/frmProcurar.h"
#include "data/Geral.h"
#include "controls/Controls.h"
#include "controls/ListBox.h"
#include "platform/Platform.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_nada_para_procurar = 60;
}

Pesquisa::Pesquisa(QWidget &janela, Geral &geral, Platform &platform)
    : QObject(&janela), geral_(geral), platform_(platform), janela_(janela)
{
    for (const auto &comando : {u"procurar"_s, u"SystemTrayProcurar"_s})
        connect(&control<QAction>(janela, comando), &QAction::triggered, this, &Pesquisa::procurar_Click);
}

Pesquisa::~Pesquisa() = default;

void Pesquisa::procurar_Click()
{
    if (control<ListBox>(janela_, u"ListaNomes"_s).ListCount() == 0) {
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
