#compdef salerpt
# Completion of salerpt in zsh: that of bash.
autoload -U bashcompinit && bashcompinit
source "${${(%):-%x}:A:h}/../../bash-completion/completions/salerpt"
_bash_complete -F _salerpt
