#include "platform/Failure.h"

Failure::Failure(int number, QString source, QString description, Kind kind)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      kind_(kind),
      what_(QStringLiteral("%1 (%2): %3").arg(number_).arg(source_, description_).toUtf8())
{
}

bool skipFailure(const std::function<void()> &step)
{
    try {
        step();
        return true;
    } catch (const Failure &) {
        return false;
    }
}

void onFailure(const std::function<void()> &handler, const std::function<void(const Failure &)> &failureStep)
{
    try {
        handler();
    } catch (const Failure &failure) {
        failureStep(failure);
    }
}
