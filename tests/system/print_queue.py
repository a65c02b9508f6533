"""A print queue of the tests' own: cupsd with all its files in one folder, printing into PDF files."""
import glob
import os
import pwd
import shutil
import socket
import subprocess
import tempfile

from qz7 import wait_for

SERVER = "/usr/sbin/cupsd"

CUPSD = """Listen {folder}/cups.sock
LogLevel warn
DefaultAuthType None
WebInterface No
Browsing Off
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
"""

FILES = """ServerRoot {folder}
RequestRoot {folder}/spool
CacheDir {folder}/cache
StateDir {folder}/state
TempDir {folder}/spool/tmp
Printcap {folder}/printcap
AccessLog {folder}/access.log
ErrorLog {folder}/error.log
PageLog {folder}/page.log
FatalErrors none
"""


def is_installed():
    return os.path.exists(SERVER) and shutil.which("lpadmin") and shutil.which("pdftotext")


class PrintQueue:
    """The queue "PDF"; `environment` leads programs to it."""

    name = "PDF"

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="qz7-cups-")
        os.chmod(self.folder, 0o755)
        for name in ("cache", "state", "spool/tmp"):
            os.makedirs(os.path.join(self.folder, name))
        for name, text in (("cupsd.conf", CUPSD), ("cups-files.conf", FILES)):
            with open(os.path.join(self.folder, name), "w", encoding="ascii") as file:
                file.write(text.format(folder=self.folder))
        # What makes the PDF files runs as root alone.
        self.as_root = [] if os.geteuid() == 0 else ["sudo"]
        self.server = subprocess.Popen(
            [*self.as_root, SERVER, "-f", "-c", os.path.join(self.folder, "cupsd.conf"),
             "-s", os.path.join(self.folder, "cups-files.conf")],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.environment = dict(os.environ, CUPS_SERVER=os.path.join(self.folder, "cups.sock"))
        try:
            wait_for(self._answers, "the print server")
            subprocess.run(["/usr/sbin/lpadmin", "-p", self.name, "-v", "cups-pdf:/",
                            "-m", "lsb/usr/cups-pdf/CUPS-PDF_opt.ppd", "-E"],
                           env=self.environment, check=True, stderr=subprocess.DEVNULL)
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        subprocess.run([*self.as_root, "kill", str(self.server.pid)], check=False)
        self.server.wait()
        subprocess.run([*self.as_root, "rm", "-rf", self.folder], check=True)

    def _answers(self):
        if self.server.poll() is not None:
            raise AssertionError("the print server has ended")
        with socket.socket(socket.AF_UNIX) as probe:
            return probe.connect_ex(os.path.join(self.folder, "cups.sock")) == 0

    def wait_until_empty(self):
        def is_empty():
            jobs = subprocess.run(["lpstat", "-o"], env=self.environment, check=True,
                                  capture_output=True, text=True)
            return jobs.stdout.strip() == ""
        wait_for(is_empty, "the jobs to be printed")

    def refuse_jobs(self):
        subprocess.run(["/usr/sbin/cupsreject", self.name], env=self.environment, check=True)

    @staticmethod
    def papers(title):
        """The PDF files that were made of documents whose title starts so."""
        home = pwd.getpwuid(os.geteuid()).pw_dir
        return sorted(glob.glob(os.path.join(home, "PDF", glob.escape(title) + "*.pdf")))
