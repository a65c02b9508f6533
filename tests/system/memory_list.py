"""The memory list's window, as tests with a real keyboard and mouse see it."""
from driven_window import Window
from qz7 import wait_for

TITLE = "Memory Channels"
ROWS = 101
LAST_ROW = 239
NAME = 6  # column


def middle(area):
    left, top, right, bottom = area
    return (left + right) // 2, (top + bottom) // 2


class MemoryList(Window):
    def rows(self):
        """The columns of each row."""
        return [row.split("\t") for row in self.driver("rows", self.handle, ROWS)]

    def names(self):
        """Of the channels in use, by their number."""
        return {n: row[NAME].strip() for n, row in enumerate(self.rows(), 1) if len(row) > NAME}

    def selected(self):
        """The numbers of the selected channels."""
        return [int(row) + 1 for row in self.driver("selected_rows", self.handle, ROWS)]

    def place_of(self, channel):
        """A point of its row, on the screen."""
        return middle(map(int, self.driver("row_area", self.handle, ROWS, channel - 1)))

    def click_row(self, channel, *held, **options):
        """A click with keys held down."""
        for key in held:
            self.desktop.xdotool("keydown", key)
        try:
            self.click(self.place_of(channel), **options)
        finally:
            for key in held:
                self.desktop.xdotool("keyup", key)

    def press_button(self, control):
        """With the real mouse."""
        self.click(middle(self.area(control)))

    def drag_title(self, right, down):
        left, top, end, _ = self.inside()
        self.drag(((left + end) // 2, top - 8), (right, down), (right, down, 0, 0))

    def drag_corner(self, right, down):
        _, _, end, bottom = self.inside()
        self.drag((end - 4, bottom + 2), (right, down), (0, 0, right, down))

    def inside(self):
        """What the window manager draws its frame around."""
        return list(map(int, self.driver("inside", self.handle)))

    def drag(self, start, way, change):
        """The window manager looks at the pointer now and then: it is moved until it has."""
        self.wait_until_in_front()
        wanted = [now + more for now, more in zip(self.on_screen(), change)]
        self.desktop.xdotool("mousemove", *map(str, start), "mousedown", "1")
        end = [str(from_ + by) for from_, by in zip(start, way)]

        def is_there():
            self.desktop.xdotool("mousemove", *map(str, start), "mousemove", *end)
            return self.on_screen() == wanted
        wait_for(is_there, "the window to follow the pointer")
        self.desktop.xdotool("mouseup", "1")

    def on_screen(self):
        """A place that moves with the window, its width and height, as the screen has them."""
        number = self.driver("screen_window", self.handle)[0]
        told = self.desktop.xdotool("getwindowgeometry", "--shell", number).splitlines()
        values = dict(line.split("=") for line in told)
        return [int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")]

    def wait_for_names(self, names):
        self.wait_to_be(names, self.names)

    def wait_for_selection(self, *channels):
        self.wait_to_be(list(channels), self.selected)

    def wait_for_keyboard(self):
        self.wait_to_be(ROWS, self.focused)
