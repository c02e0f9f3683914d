// Browsers that show the host, and what tests do with their screens.

import puppeteer from 'puppeteer-core';
import { Service, startHost } from './Programs.js';

/**
 * How long a test waits for what it expects, in milliseconds: long, since test machines may be busy.
 * VRK_DEADLINE sets it in seconds.
 */
export const deadline = 1000 * Number(process.env.VRK_DEADLINE ?? 60);

const chromium = process.env.VRK_CHROMIUM ?? '/usr/bin/chromium';

/** A user's browser: its own cookies, one page, and a list of the problems that occurred in it. */
class Viewer {
    static async open(context, host, { width = 1920, height = 1080, type = 'tab' } = {}) {
        const viewer = new Viewer();
        viewer.host = host;
        viewer.context = context;
        viewer.page = await viewer.context.newPage({ type });
        viewer.page.setDefaultTimeout(deadline);
        await viewer.page.setViewport({ width, height });
        viewer.problems = [];
        viewer.#watch();
        return viewer;
    }

    #watch() {
        this.page.on('console', (message) => {
            if (message.type() === 'error') this.problems.push(`console: ${message.text()}`);
        });
        this.page.on('pageerror', (error) => this.problems.push(`error: ${error.message}`));
        this.page.on('requestfailed', (request) => {
            // Cancelled by the browser, for example because the user left the page or typed more letters.
            const reason = request.failure()?.errorText;
            if (reason !== 'net::ERR_ABORTED') this.problems.push(`${reason}: ${request.url()}`);
        });
        this.page.on('response', (response) => {
            if (response.status() >= 400) this.problems.push(`${response.status()}: ${response.url()}`);
        });
    }

    /** Opens a path of the host and waits until what is in view has loaded. */
    async goTo(path) {
        await this.page.goto(this.host.address + path, { waitUntil: 'domcontentloaded' });
        await this.settle();
    }

    /** Waits until no part in view is loading and all pictures in view have loaded. */
    async settle() {
        await this.page.waitForFunction(() => {
            const inView = (element) => {
                const box = element.getBoundingClientRect();
                return element.getClientRects().length > 0 && box.top < innerHeight && box.bottom >= 0 &&
                    box.left < innerWidth && box.right >= 0;
            };
            const loading = [...document.querySelectorAll('[data-state="loading"]')].some(inView);
            const pictures = [...document.images].filter(inView);
            return document.body?.dataset.screen && !loading && pictures.every((picture) => picture.complete);
        }, { polling: 100 });
    }

    async screen() {
        return this.page.$eval('body', (body) => body.dataset.screen);
    }

    async waitForScreen(name) {
        await this.page.waitForSelector(`body[data-screen="${name}"]`);
        await this.settle();
    }

    waitFor(selector) {
        return this.page.waitForSelector(selector, { visible: true });
    }

    /** Clicks the first element that matches. */
    async press(selector) {
        await (await this.waitFor(selector)).click();
    }

    count(selector) {
        return this.page.$$eval(selector, (found) => found.length);
    }

    texts(selector) {
        return this.page.$$eval(selector, (found) => found.map((one) => one.textContent.trim()));
    }

    text(selector) {
        return this.page.$eval(selector, (one) => one.textContent.trim());
    }

    /** Waits for a condition about the page; arguments are passed to it. */
    until(condition, ...values) {
        return this.page.waitForFunction(condition, { polling: 100 }, ...values);
    }

    /** Scrolls to every part of the screen and waits until it has loaded. */
    async loadAll() {
        const parts = await this.page.$$('[data-state]');
        for (const part of parts) {
            await part.evaluate((one) => one.scrollIntoView({ block: 'center', behavior: 'instant' }));
            await this.until((one) => !one.isConnected || one.dataset.state !== 'loading', part);
        }
        await this.settle();
    }

    /** Plays the video of the screen until its time moves. */
    async play() {
        await this.press('[data-action="play"]');
        await this.until(() => document.querySelector('#player').currentTime > 0.5);
    }

    /** Moves the player, and waits until the host has saved that position. */
    async seek(seconds) {
        const saved = this.page.waitForResponse((answer) => answer.url().endsWith('/progress') &&
            Number(new URLSearchParams(answer.request().postData()).get('position')) >= seconds);
        await this.page.$eval('#player', (player, at) => { player.currentTime = at; }, seconds);
        await saved;
    }

    /** Chooses a fault in the panel, which stays open. */
    async breakIt(fault) {
        if ((await this.page.$('aside[data-panel="faults"]:not([hidden])')) === null) {
            await this.press('[data-action="break-it"]');
        }
        await this.press(`aside[data-panel="faults"] [data-fault="${fault}"]`);
        await this.waitFor(`[data-fault="${fault}"][aria-pressed="true"]`);
    }

    /** Another page of the same user, in a window of its own, because a hidden page loads nothing. */
    another(size) {
        return Viewer.open(this.context, this.host, { ...size, type: 'window' });
    }

    /** Signs in as one of the people on Me. */
    async signIn(name = 'ann') {
        await this.goTo('/me');
        await this.press(`[data-action="sign-in"][value="${name}"]`);
        await this.waitFor('[data-action="sign-out"]');
    }

    close() {
        return this.context.close();
    }
}

/** Service, host and browser of a test file. */
export class Television {
    static async start() {
        const television = new Television();
        television.service = await Service.start();
        television.host = await startHost(television.service);
        television.browser = await launch();
        return television;
    }

    /** Another user. The window is as large as `size`: {width, height}. */
    async viewer(size, { browser = this.browser, host = this.host } = {}) {
        return Viewer.open(await browser.createBrowserContext(), host, size);
    }

    async end() {
        await this.browser?.close();
        await this.host?.end();
        await this.service?.end();
    }
}

export const launch = () =>
    puppeteer.launch({
        executablePath: chromium,
        headless: true,
        protocolTimeout: 3 * deadline,
        // Chromium has no sandbox when it runs as root, as tests may; the pages are trusted.
        args: ['--no-sandbox', '--autoplay-policy=no-user-gesture-required', '--mute-audio', '--disable-gpu'],
    });
