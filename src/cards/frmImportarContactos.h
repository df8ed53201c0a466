// Contacts of a foreign file, cards or a table, on their way into the book: what each is to those that are
// there, the card as it will be, and what became of them. Nothing is written before cmdImportar.
#pragma once

#include "cards/EscolhasGuardadas.h"
#include "cards/EscritaDaImportacao.h"
#include "cards/FicheiroDeContactos.h"
#include "data/Temporizadores.h"
#include "ui_frmImportarContactos.h"

#include <optional>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

class ContactosAImportar;
class Geral;
class RetratoDoContacto;
struct Platform;

class frmImportarContactos final : public QDialog, public Ui::frmImportarContactos
{
    Q_OBJECT
public:
    frmImportarContactos(Geral &geral, Platform &platform, QWidget *dono = nullptr);
    ~frmImportarContactos() override;

    // The file is read once the form stands there. An empty path is none.
    void Abrir(const QString &caminho);
    // Cards that came without a file.
    void Abrir_Cartoes(const QByteArray &bytes);

    // Esc, cmdCancelar and the window's own button: what is at work is broken off first.
    void reject() override;

Q_SIGNALS:
    void ContactosMudados();

protected:
    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    enum class Estado { Vazio, A_Ler, Lido, A_Escrever, Relatorio };

    void Form_Unload();
    void cmdProcurar_Click();
    void ComboCodificacao_Click();
    void chkCriar_Click();
    void chkJuntar_Click();
    void ComboEscolha_Click();
    void cmdImportar_Click();
    void cmdAnular_Click();

    void Escrever_Textos();
    void Preencher_Listas();
    void Ligar();
    void Passar_A(Estado estado);
    void Comecar(const FicheiroDeContactos &ficheiro, const QString &nome);
    void Recomecar();
    void Passo();
    void Abrir_Fonte();
    void Lido();
    void Mostrar_Contacto();
    void Mostrar_Escolhas(const ContactoAImportar &contacto);
    void Mostrar_Relatorio();
    int Linha() const; // -1 without one
    bool Pode_Importar();
    bool Escrever();
    bool Progresso(int percentagem);
    void Recusar(const QString &texto);

    Geral &geral_;
    Platform &platform_;
    PausaDosTemporizadores pausa_;
    ContactosAImportar *contactos_;
    std::unique_ptr<RetratoDoContacto> retrato_;
    Estado estado_ = Estado::Vazio;
    QByteArray bytes_;
    std::optional<TabelaEscolhida> tabela_; // where the file is one
    std::optional<ImportacaoDeContactos> importacao_;
    std::optional<EscritaDaImportacao> escrita_;
    QTimer passo_;
    QElapsedTimer desde_; // the last look at what the person does
    bool aberta_ = false; // the source of the reading
    bool cancelada_ = false;
    EscolhasGuardadas escolhas_; // before a file is read anew
};
