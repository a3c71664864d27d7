#pragma once

#include <cstddef>

#include "utils/Str.h"

// Memory put aside for the time when the system refuses more: it lets a program end what it has begun. An allocation
// that is refused takes the reserve and goes on; the program asks at its next quiet moment, and gives memory back or
// ends in order. An allocation that is refused even then ends the process: what outputs have gathered is written, a
// line on standard error tells what was being done, and the status is 1. Threads: for programs of one.
class MemoryReserve {
public:
    // Puts the reserve aside, also again after it was taken. False when there is no memory for it.
    static bool Hold();
    static bool WasTaken() { return WasTaken_; }
    static void SetTask(const Str& task) { Task_ = task; }  // what is being done, such as "dive"
    // What is done before the process ends, besides flushing standard I/O; it must not allocate.
    static void SetLastAct(void (*act)()) { LastAct_ = act; }

    // For allocations without operator new, which calls it by itself: returns when it is worth trying again.
    static void Take();

    // Lends the reserve to a library that does not stand to be refused memory. Loans nest.
    class Loan {
    public:
        // bytes: what the library may need, where that is much.
        explicit Loan(size_t bytes = 0);
        ~Loan();
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;

        bool hasRoom() const { return hasRoom_; }  // the library can be called

    private:
        const bool lends_;
        bool hasRoom_;
    };

private:
    static void* Reserve_;
    static bool WasTaken_;
    static int Loans_;
    static size_t Assured_;  // bytes that the outermost loan found
    static Str Task_;
    static void (*LastAct_)();
};
