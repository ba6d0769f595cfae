#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Follows the two links of a help page in a browser without a window.

usage: follow_links.py ADDRESS PICTURES

Fails unless the first link plays a film and the second shows a PDF document. Saves a picture of
each under a name that begins with PICTURES.
"""

import sys

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

# A picture of an empty page is smaller.
SMALLEST_PICTURE_BYTES = 30000
PLAYS = "const film = document.querySelector('video'); return film && film.currentTime > 1"
SHOWS_DOCUMENT = "return document.contentType == 'application/pdf'"


def open_browser():
    options = webdriver.ChromeOptions()
    # The sandbox doesn't work for root.
    for option in ("--headless=new", "--no-sandbox", "--window-size=1000,800"):
        options.add_argument(option)
    return webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))


def shows_something(browser):
    return len(browser.get_screenshot_as_png()) > SMALLEST_PICTURE_BYTES


def main():
    address, pictures = sys.argv[1:]
    browser = open_browser()
    try:
        for number, (kind, sign) in enumerate((("film", PLAYS), ("document", SHOWS_DOCUMENT))):
            browser.get(address)
            browser.find_elements(By.TAG_NAME, "a")[number].click()
            WebDriverWait(browser, 20).until(lambda shown: shown.execute_script(sign))
            WebDriverWait(browser, 20).until(shows_something)
            print(f"{kind}: {browser.current_url}")
            browser.save_screenshot(f"{pictures}_{kind}.png")
    finally:
        browser.quit()


main()
