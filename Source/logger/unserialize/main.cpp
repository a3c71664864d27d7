#include "logger/unserialize/Unserialize.h"

int main(int argc, char** argv) {
    return Unserialize::Run(argc, argv);
}
