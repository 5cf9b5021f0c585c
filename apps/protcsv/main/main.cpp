#include "apps/protcsv/program.h"

int main(int argument_count, char** arguments) { return prot::run_program(argument_count, arguments); }
