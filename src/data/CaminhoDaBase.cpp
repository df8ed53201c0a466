#include "data/CaminhoDaBase.h"

#include "platform/ProgramFolder.h"

#include <utility>

CaminhoDaBase::CaminhoDaBase(QString &CaminhoBD, QString pasta)
    : CaminhoBD_(&CaminhoBD), pasta_(std::move(pasta))
{
}

QString CaminhoDaBase::Caminho() const
{
    return CaminhoBD_->isEmpty() ? fileIn(pasta_, QStringLiteral("morvex.mdb")) : *CaminhoBD_;
}

const QString &CaminhoDaBase::Fixar()
{
    *CaminhoBD_ = Caminho();
    return *CaminhoBD_;
}

void CaminhoDaBase::Tomar(const QString &definicao)
{
    if (!definicao.isEmpty()) *CaminhoBD_ = definicao;
}

QString CaminhoDaBase::Trocar(const QString &ficheiro) { return std::exchange(*CaminhoBD_, ficheiro); }
