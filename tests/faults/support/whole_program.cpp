#include "tests/faults/support/whole_program.h"

#include "apps/protcsv/program.h"

namespace prot::faults {

int WholeProgram::run(SectionTable sections) {
    out_.clear();
    err_.clear();
    ReadText in_text(input_);
    std::istream in(&in_text);
    std::ostream out(&out_), err(&err_);
    return run_program(arguments_, {in, out, err}, sections);
}

}  // namespace prot::faults
