#include "interchange/ExportacaoDeContactos.h"

#include "data/Geral.h"
#include "platform/Failure.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace
{
bool E_Cartao(FormatoDeSaida formato)
{
    return formato == FormatoDeSaida::Cartao3 || formato == FormatoDeSaida::Cartao4;
}

std::unique_ptr<DestinoDeSaida> Destino(const PedidoDeSaida &pedido)
{
    if (pedido.um_por_contacto && E_Cartao(pedido.formato))
        return std::make_unique<NumaPasta>(pedido.alvo, u"vcf"_s);
    return std::make_unique<NumFicheiro>(pedido.alvo);
}
} // namespace

ExportacaoDeContactos::ExportacaoDeContactos(Geral &geral, PedidoDeSaida pedido)
    : geral_(geral), pedido_(std::move(pedido)), visiveis_(geral)
{
    if (geral_.de.E_A_Base_Aberta(pedido_.alvo))
        throw Failure(Failure::PathFileAccess, pedido_.alvo, u"The book itself can't be replaced"_s);
    destino_ = Destino(pedido_);
    if (E_Cartao(pedido_.formato)) {
        const CardVersion versao =
            pedido_.formato == FormatoDeSaida::Cartao4 ? CardVersion::V40 : CardVersion::V30;
        cartoes_ = std::make_unique<CartoesDeSaida>(geral_, visiveis_.Grupos(),
                                                    CartoesDeSaida::Opcoes{versao, pedido_.com_fotografias});
        return;
    }
    const CsvDialect dialecto =
        pedido_.formato == FormatoDeSaida::TabelaExcel ? CsvDialect::Excel : CsvDialect::Plain;
    tabela_ = std::make_unique<TabelaDeSaida>(dialecto, geral_.IdiomaActual);
    destino_->Juntar({}, tabela_->Inicio());
}

void ExportacaoDeContactos::Avancar(int milissegundos)
{
    QElapsedTimer relogio;
    relogio.start();
    geral_.de.Juntar([&] {
        while (!Acabou()) {
            Escrever(pedido_.contactos[feitos_++]);
            if (relogio.elapsed() >= milissegundos) return;
        }
    });
}

void ExportacaoDeContactos::Escrever(int ID)
{
    const std::optional<ContactoDoLivro> livro = visiveis_.Ler(ID);
    if (!livro) return;
    destino_->Juntar(livro->contacto.colunas[Coluna::Nome],
                     cartoes_ ? cartoes_->Escrever(*livro) : tabela_->Linha(livro->contacto));
    ++escritos_;
}
