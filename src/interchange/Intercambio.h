// The interchange's share of the main window: import, export, and the backup. Owns what lives as long as the
// process: the file last chosen and the older database, which is opened once.
#pragma once

#include <functional>
#include <memory>
#include <QObject>

class DE2;
class frmImportarContactos;
class DesfazerEliminacao;
class Geral;
class Janela;
class ReportControl;
struct Platform;

class Intercambio final : public QObject
{
    Q_OBJECT
public:
    Intercambio(Janela &janela, Geral &geral, Platform &platform, ReportControl &CrystalReport1,
                DesfazerEliminacao &desfazer);
    ~Intercambio() override;

    // The older database: made at the first use, from the file chosen last, and the same ever after. Raises
    // Failure where it can't be opened; the next use tries again.
    DE2 &De2();

    // The form of the menu entry Importar, as a person finds it who has chosen that file.
    void Importar(const QString &caminho);

    // Contacts of cards or of a table, in the form that shows them before anything is written. Without the
    // right to add contacts there is the refusal. The first takes a path, which may be empty.
    void ImportarContactos(const QString &caminho);
    void ImportarCartoes(const QByteArray &bytes);

    QString FileName; // what the file dialog last gave

Q_SIGNALS:
    void ContactosMudados(); // the list must be read anew

private:
    void Importar_Click();
    void Mostrar_frmImportar(const QString &caminho);
    void Exportar_Click();
    void Mostrar_frmImportarContactos(const std::function<void(frmImportarContactos &)> &abrir);
    void Duplicados_Click();
    void mnuBackup_Click();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    ReportControl &CrystalReport1;
    DesfazerEliminacao &desfazer_;
    std::unique_ptr<DE2> de2_;
};
