// Whether the answer to a question for one card is a card.
#pragma once

#include "carddav/DavConnection.h"

RemoteError errorOfCard(const DavAnswer &answer);
