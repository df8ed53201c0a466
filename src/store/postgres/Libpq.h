// The server's own library, loaded where the first address is met: who works with a file never pays for it,
// nor for the dozen libraries behind it. Each of its functions has here the name that it has there, less the
// PQ, and takes the same. A call raises Failure (ServerLibraryMissing) on a computer without the library.
#pragma once

#include <atomic>
#include <libpq-fe.h>
#include <QFunctionPointer>

namespace libpq
{
// Whether this computer has it; raises nothing.
bool isHere();

// Raises Failure as above.
QFunctionPointer entry(const char *name);

template<class Signature> class Function;

template<class Result, class... Arguments> class Function<Result(Arguments...)>
{
public:
    constexpr explicit Function(const char *name) : name_(name) {}

    Result operator()(Arguments... arguments) const
    {
        QFunctionPointer known = entry_.load(std::memory_order_relaxed);
        if (known == nullptr) entry_.store(known = entry(name_), std::memory_order_relaxed);
        return reinterpret_cast<Result (*)(Arguments...)>(known)(arguments...);
    }

private:
    const char *name_;
    mutable std::atomic<QFunctionPointer> entry_ = nullptr;
};

// Only its type is asked of the header, so that nothing is linked.
#define MORVEX_OF_LIBPQ(name) inline constinit const Function<decltype(::PQ##name)> name("PQ" #name)

// Addresses and connections
MORVEX_OF_LIBPQ(conninfoParse);
MORVEX_OF_LIBPQ(conninfo);
MORVEX_OF_LIBPQ(conninfoFree);
MORVEX_OF_LIBPQ(connectStartParams);
MORVEX_OF_LIBPQ(connectPoll);
MORVEX_OF_LIBPQ(connectionNeedsPassword);
MORVEX_OF_LIBPQ(status);
MORVEX_OF_LIBPQ(socket);
MORVEX_OF_LIBPQ(backendPID);
MORVEX_OF_LIBPQ(transactionStatus);
MORVEX_OF_LIBPQ(errorMessage);
MORVEX_OF_LIBPQ(setErrorVerbosity);
MORVEX_OF_LIBPQ(setNoticeProcessor);
MORVEX_OF_LIBPQ(setnonblocking);
MORVEX_OF_LIBPQ(finish);

// Commands
MORVEX_OF_LIBPQ(exec);
MORVEX_OF_LIBPQ(execParams);
MORVEX_OF_LIBPQ(sendQuery);
MORVEX_OF_LIBPQ(sendQueryParams);
MORVEX_OF_LIBPQ(sendPrepare);
MORVEX_OF_LIBPQ(sendQueryPrepared);
MORVEX_OF_LIBPQ(enterPipelineMode);
MORVEX_OF_LIBPQ(exitPipelineMode);
MORVEX_OF_LIBPQ(pipelineSync);
MORVEX_OF_LIBPQ(setSingleRowMode);
MORVEX_OF_LIBPQ(flush);
MORVEX_OF_LIBPQ(isBusy);
MORVEX_OF_LIBPQ(consumeInput);
MORVEX_OF_LIBPQ(putCopyData);
MORVEX_OF_LIBPQ(putCopyEnd);

// What comes back
MORVEX_OF_LIBPQ(getResult);
MORVEX_OF_LIBPQ(resultStatus);
MORVEX_OF_LIBPQ(resultErrorField);
MORVEX_OF_LIBPQ(resultErrorMessage);
MORVEX_OF_LIBPQ(cmdTuples);
MORVEX_OF_LIBPQ(ntuples);
MORVEX_OF_LIBPQ(nfields);
MORVEX_OF_LIBPQ(fname);
MORVEX_OF_LIBPQ(ftype);
MORVEX_OF_LIBPQ(getvalue);
MORVEX_OF_LIBPQ(getisnull);
MORVEX_OF_LIBPQ(getlength);
MORVEX_OF_LIBPQ(unescapeBytea);
MORVEX_OF_LIBPQ(notifies);
MORVEX_OF_LIBPQ(freemem);
MORVEX_OF_LIBPQ(clear);

#undef MORVEX_OF_LIBPQ
} // namespace libpq
