"""What stands on a printed paper, a PDF file."""
import subprocess


def squeezed(lines):
    """Words apart from where a proportional font puts them: blanks and empty lines left out."""
    return [text for text in ("".join(line.split()) for line in lines) if text]


def paper_lines(path):
    text = subprocess.run(["pdftotext", "-layout", path, "-"], check=True, capture_output=True)
    return squeezed(text.stdout.decode().replace("\f", "\n").splitlines())


def page_count(path):
    info = subprocess.run(["pdfinfo", path], check=True, capture_output=True, text=True).stdout
    return int(next(line.split()[1] for line in info.splitlines() if line.startswith("Pages:")))
