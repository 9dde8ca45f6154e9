#pragma once

#include <exception>
#include <map>
#include <string>

namespace trunvex {

// How often each routine under an error trap was ended by one. A developer's figure: the operator never sees it.
std::map<std::string, long>& trappedErrors();

void noteTrapped(const char* routine, const char* reason);

// The error trap: runs the routine's body and ends it without a word when anything in it rises. What was already done
// stays done. Used at the boundary of a routine that the gateway's bytes or the machine can make fail, nowhere else.
// Returns false when the body was cut short; `reason` then says why, for a routine that has a word for the operator.
template <class Body>
bool quietly(const char* routine, Body&& body, std::string* reason = nullptr) {
    try {
        body();
        return true;
    } catch (const std::exception& error) {
        noteTrapped(routine, error.what());
        if (reason) *reason = error.what();
        return false;
    }
}

}  // namespace trunvex
