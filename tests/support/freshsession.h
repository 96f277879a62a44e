#pragma once

#include <vector>

#include "session/session.h"

/// A session as at the start of the process, sized for one side; as at the start again when the test is over.
class FreshSession {
public:
    explicit FreshSession(Side side, int16_t exponent = 1) {
        session = Session{};
        session.sizeExponent = exponent;
        chooseside(side);
        allocatearrays();
    }
    ~FreshSession() { session = Session{}; }
    FreshSession(const FreshSession&) = delete;
    FreshSession& operator=(const FreshSession&) = delete;
};

/// Collects the calculation faults told from here to the end of the scope.
class Faults {
public:
    Faults() : before(tellfault) {
        numbers().clear();
        tellfault = [](int number) { numbers().push_back(number); };
    }
    ~Faults() { tellfault = before; }
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    static std::vector<int>& numbers() {
        static std::vector<int> told;
        return told;
    }
    /// The faults since the last call.
    static std::vector<int> taken() {
        std::vector<int> told;
        told.swap(numbers());
        return told;
    }

private:
    FaultTeller before;
};
