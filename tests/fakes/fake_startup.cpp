#include "fakes/fake_startup.h"

#include <algorithm>

bool FakeStartupServices::Called(const std::string& call) const {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}
