// The elements and attributes of a report's file, read once from its beginning to its end. What doesn't fit
// is a Failure that tells the file, the line and the column.
#pragma once

#include <QXmlStreamReader>

class DefinitionXml
{
public:
    DefinitionXml(const QByteArray &bytes, QString path) : path_(std::move(path)), xml_(bytes) {}

    [[noreturn]] void raise(const QString &what) const;

    // Goes on to the next element within the one in hand; false at its end. Text between elements may only be
    // blank.
    bool child();
    QStringView name() const { return xml_.name(); }     // of the element in hand
    void rest();                                         // to the end of the file, for its faults
    QString content() { return xml_.readElementText(); } // of the element in hand, up to its end
    void empty();                                        // the element in hand has no other within

    // The attributes of the element in hand. Each is taken once; what is left over is an error.
    void begin();
    void end() const;
    QString text(const char *name, const QString &otherwise = {});
    QString needed(const char *name);
    double length(const char *name, double otherwise = 0); // twips
    bool flag(const char *name);
    int textNumber(); // of the program's own texts; 0 where none is named
    unsigned colour(const char *name, unsigned otherwise); // 0xRRGGBB

    void checkXml() const; // that what was read so far is XML

private:
    QString path_;
    QXmlStreamReader xml_;
    QXmlStreamAttributes attributes_;
};
