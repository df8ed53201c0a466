// A compound file: a file system within one file, as the older office formats use it. Here it holds one
// stream.
#pragma once

class QByteArray;
class QString;

// The stream ends in zeros where it is shorter than 4,096 bytes: shorter ones would have to be stored in
// another way.
QByteArray compoundFile(const QString &streamName, const QByteArray &stream);
