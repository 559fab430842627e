"""A program's windows as a screen reader gets them: by role, name and description, and by what it
is told of the keyboard's way."""

import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

DEADLINE = 15  # seconds
# A busy machine may answer later than within the usual 800 ms, and an event half read would be lost.
Atspi.set_timeout(1000 * DEADLINE, 1000 * DEADLINE)
KEYS = {"Escape": 9, "Tab": 23, "Return": 36, "F": 41, "Space": 65, "F2": 68, "Home": 110, "Up": 111,
        "Down": 116, "Menu": 135}  # as a PC's keyboard sends


class Missing(Exception):
    pass


def wait_for(what, look):
    """What `look` gives, once it gives something."""
    end = time.monotonic() + DEADLINE
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            found = look()
        except GLib.Error:  # went away under the look
            found = None
        if found:
            return found
        time.sleep(0.02)
    raise Missing(what)


def has(thing, state):
    return thing.get_state_set().contains(state)


def children(thing):
    found = [thing.get_child_at_index(place) for place in range(thing.get_child_count())]
    return [child for child in found if child]


def all_below(thing):
    for child in children(thing):
        yield child
        yield from all_below(child)


def middle(thing):
    place = Atspi.Component.get_extents(thing, Atspi.CoordType.SCREEN)
    return place.x + place.width // 2, place.y + place.height // 2


def do(thing, action):
    names = [
        Atspi.Action.get_action_name(thing, place)
        for place in range(Atspi.Action.get_n_actions(thing))
    ]
    if action not in names:
        raise Missing(f"{action} at {thing.get_name()}, which has {names}")
    Atspi.Action.do_action(thing, names.index(action))


def write(box, text):
    if not Atspi.EditableText.set_text_contents(box, text):
        raise Missing(f"a way to write into {box.get_name()}")


class Program:
    """The accessible side of a process."""

    def __init__(self, process):
        self.told = []
        self.listener = Atspi.EventListener.new(self._hear)
        self.listener.register("object:state-changed:focused")
        self.root = wait_for("the program on the bus", lambda: self._of(process))

    @staticmethod
    def _of(process):
        if process.poll() is not None:
            raise Missing("the program, which has ended")
        found = [each for each in children(Atspi.get_desktop(0))
                 if each.get_process_id() == process.pid]
        return found[0] if found else None

    def _hear(self, event):
        if event.detail1:
            self.told.append(event.source)

    def focused(self, role, name=None):
        """The next thing of that role and name, or of any, that the keyboard comes to."""

        def look():
            while self.told:
                it = self.told.pop(0)
                if it.get_role_name() == role and name in (None, it.get_name()):
                    return it
            return None

        return wait_for(f"the keyboard at {role} {name or ''}", look)

    def window(self, name):
        """The window of that name, once it is the last that came up."""

        def look():
            shown = [each for each in children(self.root) if has(each, Atspi.StateType.SHOWING)]
            return Window(shown[-1]) if shown and shown[-1].get_name() == name else None

        return wait_for(f"the window {name}", look)


class Window:
    def __init__(self, root):
        self.root = root

    def find(self, role, name, description=None):
        """The one thing of that role and name, and of that description where names are shared."""

        def fits(thing):
            return (
                thing.get_role_name() == role
                and thing.get_name() == name
                and description in (None, thing.get_description())
                and has(thing, Atspi.StateType.SHOWING)
            )

        found = wait_for(
            f"{role} {name} {description or ''}",
            lambda: [thing for thing in all_below(self.root) if fits(thing)],
        )
        if len(found) > 1:
            raise Missing(f"one {role} {name}: there are {len(found)}")
        return found[0]

    def press_key(self, name):
        wait_for("the keyboard", lambda: has(self.root, Atspi.StateType.ACTIVE))
        Atspi.generate_keyboard_event(KEYS[name], None, Atspi.KeySynthType.PRESSRELEASE)

    def drag(self, thing, onto):
        """With the mouse, by the way that a hand takes."""
        (x, y), (to_x, to_y) = middle(thing), middle(onto)
        Atspi.generate_mouse_event(x, y, "b1p")
        for step in range(11):
            Atspi.generate_mouse_event(x + (to_x - x) * step // 10, y + (to_y - y) * step // 10, "abs")
            time.sleep(0.02)
        Atspi.generate_mouse_event(to_x, to_y, "b1r")

    def press(self, name, description=None):
        button = self.find("push button", name, description)
        wait_for(f"{name} being on", lambda: has(button, Atspi.StateType.ENABLED))
        do(button, "Press")

    def write(self, name, text):
        write(self.find("text", name), text)

    def select(self, role, name, description=None):
        """Selects a node of a tree or an entry of a list."""
        thing = self.find(role, name, description)
        if not has(thing, Atspi.StateType.SELECTED):
            do(thing, "Toggle")
        wait_for(f"{name} being selected", lambda: has(thing, Atspi.StateType.SELECTED))
