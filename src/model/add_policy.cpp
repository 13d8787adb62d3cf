#include "model/add_policy.h"

AddPolicy::~AddPolicy() = default;
