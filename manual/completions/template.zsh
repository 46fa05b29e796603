#compdef @program@
_arguments@zsh_specs@
