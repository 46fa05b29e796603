# Completion of @program@ for fish.
@fish_operands@@fish_lines@