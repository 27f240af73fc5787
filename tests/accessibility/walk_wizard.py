#!/usr/bin/python3
"""Uses the wizard as a screen reader does, through AT-SPI and nothing else.

    dbus-run-session -- walk_wizard.py KRT550TOOL

Finds every control of every page by role and name, ticks pages, lets step 3 tune itself, aborts step 4, and prints how
long the program took to answer while a motor was turning. Exit status 0 when all of it could be done.
"""

import os
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# The newer name of an operation does not reach Python in this version of the library.
warnings.filterwarnings("ignore", category=DeprecationWarning)

ROLE = Atspi.Role
STATE = Atspi.StateType
# Slowest answer that a person with a screen reader does not notice [s].
SLOWEST = 0.25
PAGES = 16


class Trouble(Exception):
    pass


def wait_for(find, what, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            found = find()
        except GLib.Error:  # gone while it was looked at
            found = None
        if found:
            return found
        time.sleep(0.02)
    raise Trouble(f"{what}: not there after {seconds} s")


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child:
            yield child


def showing(node):
    """The accessible and all below it that can be seen."""
    if not node.get_state_set().contains(STATE.SHOWING):
        return
    yield node
    for child in children(node):
        yield from showing(child)


def has(node, state):
    return node.get_state_set().contains(state)


class Wizard:
    def __init__(self, process):
        self.process = process
        self.application = wait_for(self.find_application, "the program on the accessibility bus", 60)
        self.application.set_cache_mask(Atspi.Cache.NONE)  # what is asked for is to be answered, not remembered

    def find_application(self):
        if self.process.poll() is not None:
            raise Trouble(f"the program ended with {self.process.returncode}")
        for node in children(Atspi.get_desktop(0)):
            if node.get_process_id() == self.process.pid:
                return node
        return None

    def window(self):
        """The window in front: the last one, a message box before the wizard."""
        windows = [node for node in children(self.application) if has(node, STATE.SHOWING)]
        return windows[-1] if windows else None

    def title(self):
        window = self.window()
        return window.get_name() if window else ""

    def find(self, role, name):
        for node in showing(self.window()):
            if node.get_role() == role and node.get_name() == name:
                return node
        return None

    def act(self, role, name, seconds=20):
        node = wait_for(lambda: self.find(role, name), f'{role.value_nick} "{name}" in "{self.title()}"', seconds)
        if not has(node, STATE.ENABLED):
            raise Trouble(f'"{name}" in "{self.title()}" is disabled')
        act_on(node)

    def press(self, name):
        self.act(ROLE.PUSH_BUTTON, name)

    def answer(self, caption):
        """Answers the message box that is to come; returns its text."""
        box = wait_for(lambda: self.window() if self.window().get_role() in (ROLE.DIALOG, ROLE.ALERT)
                       and not self.title().startswith("[") else None, f'a message box to answer "{caption}"', 120)
        text = " ".join(node.get_name() for node in showing(box) if node.get_role() == ROLE.LABEL)
        self.act(ROLE.PUSH_BUTTON, caption)
        wait_for(lambda: self.title().startswith("["), "the wizard after its message box")
        return text


def label_of(node):
    relations = [relation for relation in node.get_relation_set()
                 if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY]
    return " ".join(relation.get_target(0).get_name() for relation in relations)


def check_page(wizard):
    """Every control that takes the focus or shows a value has a role and a name; returns how many there are."""
    count = 0
    for node in showing(wizard.window()):
        speaks = has(node, STATE.FOCUSABLE) or node.get_role() in (ROLE.PROGRESS_BAR, ROLE.SLIDER)
        if not speaks or node.get_role() in (ROLE.DIALOG, ROLE.FRAME, ROLE.LIST_ITEM, ROLE.SCROLL_PANE):
            continue
        where = f'{node.get_role().value_nick} "{node.get_name()}" of "{wizard.title()}"'
        if not node.get_name().strip():
            raise Trouble(f"{where} has no name")
        # The name of a drop-down is its choice; one that is disabled and empty has a name of its own.
        if node.get_role() == ROLE.COMBO_BOX and has(node, STATE.ENABLED) and not label_of(node):
            raise Trouble(f"{where} has no label")
        if node.get_role() in (ROLE.UNKNOWN, ROLE.INVALID):
            raise Trouble(f"{where} has no role")
        if "<" in node.get_description() and ">" in node.get_description():
            raise Trouble(f"{where} is described with markup: {node.get_description()}")
        count += 1
    if count < 4:
        raise Trouble(f'only {count} controls in "{wizard.title()}"')
    return count


def boxes(wizard):
    return [node.get_name() for node in showing(wizard.window()) if node.get_role() == ROLE.CHECK_BOX]


def walk_dialogs(wizard):
    """The settings behind the overview of the terminals."""
    page = wizard.title()
    controls = 0
    for name in [node.get_name() for node in showing(wizard.window()) if node.get_name().endswith(": edit parameters")]:
        wizard.press(name)
        wait_for(lambda: wizard.title() != page, f'the dialog behind "{name}"')
        controls += check_page(wizard)
        wizard.press("Cancel")
        wait_for(lambda: wizard.title() == page, f'the page behind the dialog of "{name}"')
    return controls


def walk_views(wizard):
    """The page again with what its basic view hides."""
    if not wizard.find(ROLE.PUSH_BUTTON, "Advanced"):
        return 0
    wizard.press("Advanced")
    wait_for(lambda: wizard.find(ROLE.PUSH_BUTTON, "Basic"), "the advanced view")
    return check_page(wizard)


def walk_all_pages(wizard):
    wizard.press("Advanced")
    wait_for(lambda: len(boxes(wizard)) == PAGES, f"{PAGES} pages on offer")
    names = boxes(wizard)
    for name in names:
        wizard.act(ROLE.CHECK_BOX, name)
    controls = check_page(wizard)
    start_page = wizard.title()
    wizard.press("Next >")
    wait_for(lambda: wizard.title() != start_page, "the first page")
    for page in range(PAGES):
        title = wizard.title()
        controls += check_page(wizard) + walk_dialogs(wizard) + walk_views(wizard)
        for tab in [node.get_name() for node in showing(wizard.window()) if node.get_role() == ROLE.PAGE_TAB]:
            wizard.act(ROLE.PAGE_TAB, tab)
            wait_for(lambda: has(wizard.find(ROLE.PAGE_TAB, tab), STATE.FOCUSED), f'tab "{tab}"')
            controls += check_page(wizard)
        wizard.press("Finish" if page == PAGES - 1 else "Next >")
        wait_for(lambda: wizard.title() != title, f'the page after "{title}"')
    for name in names:
        wizard.act(ROLE.CHECK_BOX, name)
    wizard.press("Basic")
    return controls


def go_to(wizard, step):
    name = next(node.get_name() for node in showing(wizard.window())
                if node.get_role() == ROLE.CHECK_BOX and node.get_name().startswith(f"{step}."))
    wizard.act(ROLE.CHECK_BOX, name)
    wizard.press("Next >")
    wait_for(lambda: f"] {step}." in wizard.title(), f"the page of step {step}")
    return name


def act_on(node):
    """Does the first thing that a control offers: toggle or press."""
    names = [Atspi.Action.get_action_name(node, i).lower() for i in range(Atspi.Action.get_n_actions(node))]
    Atspi.Action.do_action(node, names.index("toggle" if "toggle" in names else "press"))


class Run:
    """A run of a step, from its page to the start page; asks questions while the motor turns."""

    def __init__(self, wizard, step, answers):
        self.wizard = wizard
        self.answers = answers
        self.box = go_to(wizard, step)
        # Looking for them takes many questions, and the run does not wait.
        self.cancel_button = wizard.find(ROLE.PUSH_BUTTON, "Cancel")
        self.progress = next(node for node in showing(wizard.window()) if node.get_role() == ROLE.PROGRESS_BAR)
        wizard.press("Start")
        wizard.answer("OK")

    def ask_while(self, goes_on):
        """Asks for the progress; notes how long each answer took [s]."""
        while goes_on():
            start = time.monotonic()
            Atspi.Value.get_current_value(self.progress)
            self.answers.append(time.monotonic() - start)
            time.sleep(0.02)

    def cancel(self):
        """Back to the start page, where the page is ticked off; returns how long it took [s]."""
        start = time.monotonic()
        act_on(self.cancel_button)
        wait_for(lambda: self.wizard.find(ROLE.CHECK_BOX, self.box), "the start page after Cancel")
        taken = time.monotonic() - start
        self.wizard.act(ROLE.CHECK_BOX, self.box)
        return taken


def autotune(wizard, answers):
    run = Run(wizard, 3, answers)
    run.ask_while(lambda: wizard.title().startswith("["))
    text = wizard.answer("OK")
    run.cancel()
    return text


def abort(wizard, answers):
    run = Run(wizard, 4, answers)
    end = time.monotonic() + 0.5
    run.ask_while(lambda: time.monotonic() < end)
    return run.cancel()


def start_display():
    """A display that nobody looks at; the server itself picks a free number."""
    reading, writing = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                              pass_fds=[writing], stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as pipe:
        number = pipe.readline().strip()
    if not number:
        raise SystemExit("Xvfb does not start")
    return server, ":" + number


def in_front(process):
    """What a person would see who looked at a failure."""
    try:
        names = [node.get_name() for node in showing(Wizard(process).window())]
    except (Trouble, GLib.Error) as trouble:
        return str(trouble)
    return ", ".join(name for name in names if name)


def main():
    server, display = start_display()
    environment = dict(os.environ, DISPLAY=display, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    process = subprocess.Popen([sys.argv[1], "--wizard", "--drive", "sim:S2", "--record", "none"], env=environment)
    answers = []
    try:
        wizard = Wizard(process)
        wait_for(lambda: wizard.title().startswith("["), "the wizard's window")
        print(f"{walk_all_pages(wizard)} controls found by role and name on {PAGES + 1} pages")
        print(f"step 3: {autotune(wizard, answers)}")
        print(f"step 4: aborted, back on the start page after {abort(wizard, answers):.2f} s")
        answers.sort()
        print(f"{len(answers)} questions during the runs: half answered within {1000 * answers[len(answers) // 2]:.1f} ms, "
              f"all within {1000 * answers[-1]:.1f} ms")
        if answers[-1] > SLOWEST:
            raise Trouble(f"an answer took longer than {SLOWEST} s")
        wizard.press("Close")
        process.wait(20)
    except Trouble as trouble:
        print(f"failed: {trouble}\nin front: {in_front(process)}", file=sys.stderr)
        return 1
    finally:
        if process.poll() is None:
            process.kill()
        server.terminate()
    return 0


if __name__ == "__main__":
    sys.exit(main())
