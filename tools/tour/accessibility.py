"""What an assistive tool is told: a listing of all that shows, and the rule that everything a user can reach has a name
and a role that fits."""

import screen
from gi.repository import Atspi
from screen import Missing

# What a control may be. A filler, a panel or an unknown that takes the focus tells the user nothing.
CONTROLS = {"push button", "toggle button", "radio button", "check box", "text", "entry", "tree", "tree item", "tree table",
            "table cell", "list", "list item", "menu", "menu item", "separator", "scroll bar", "combo box", "push button menu"}
ROWS = {"tree item", "table cell", "list item"}


def write_listing(path):
    """Writes all that shows, a line each, and checks it."""
    lines, faults, rows = [], [], 0
    for depth, node in screen.application().shown():
        role, name = node.role, node.name
        said = [state for state in ("FOCUSED", "SELECTED", "CHECKED", "EXPANDABLE", "EXPANDED")
                if node.has(getattr(Atspi.StateType, state))]
        lines.append(f"{'  ' * depth}{role} \"{name}\"{' ' if said else ''}{' '.join(said).lower()}")
        reachable = node.has(Atspi.StateType.FOCUSABLE) or role in CONTROLS
        if reachable and not name and role not in ("separator", "scroll bar"):
            faults.append(f"without a name: {lines[-1].strip()}")
        if node.has(Atspi.StateType.FOCUSABLE) and role not in CONTROLS and role not in ("frame", "dialog", "alert"):
            faults.append(f"of no fitting role: {lines[-1].strip()}")
        rows += role in ROWS
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")
    if faults:
        raise Missing(f"{path.name}: " + "; ".join(faults))
    if rows == 0:
        raise Missing(f"{path.name}: no rows are told of")
