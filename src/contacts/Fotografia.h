// The photograph of a contact: where it lies, and how it gets on to a form.
#pragma once

class Geral;
class Picture;
class QLabel;
class QRectF;
class QString;

// With a drive, a network name or a root of its own a path stands by itself; any other begins in the
// program's folder, and may part its folders by backslashes, as older data has it.
QString Caminho_Da_Fotografia(const Geral &geral, const QString &Fotografia);

// The editor takes a path as it stands and doesn't look in the program's folder, save for one with
// backslashes, which means nothing anywhere else.
QString Caminho_No_Editor(const Geral &geral, const QString &Fotografia);

// The picture that a contact names: a file, or one that the database holds. Raises Failure where there is
// none.
Picture Imagem_Da_Fotografia(Geral &geral, const QString &Fotografia);
Picture Imagem_No_Editor(Geral &geral, const QString &Fotografia);

// Shows the picture on the label and the label at that place, in twips. Raises Failure for a broken picture,
// and leaves the label as it was.
void Mostrar_Fotografia(QLabel &Thumb, const Picture &imagem, const QRectF &lugar);
