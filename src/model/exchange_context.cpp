#include "model/exchange_context.h"

ExchangeContext::~ExchangeContext() = default;
