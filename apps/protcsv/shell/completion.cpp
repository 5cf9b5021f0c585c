#include "apps/protcsv/shell/completion.h"

namespace prot {

std::string completion_script(Shell shell, SectionTable sections) {
    switch (shell) {
        case Shell::zsh:
            return zsh_completion(sections);
        case Shell::fish:
            return fish_completion(sections);
        case Shell::bash:
            break;
    }
    return bash_completion(sections);
}

}  // namespace prot
