// The keys of a remote control only: arrows, Enter, Escape and Backspace.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { viewer } from './support/ViewerOfEachTest.js';

const press = (key) => viewer.page.keyboard.press(key);

/** The element that has the focus. */
const focus = () => viewer.page.evaluate(() => {
    const element = document.activeElement;
    const box = element.getBoundingClientRect();
    return {
        tag: element.tagName,
        href: element.getAttribute('href'),
        kind: element.dataset.kind ?? null,
        row: element.closest('section.row')?.dataset.row ?? null,
        isVideo: element.id === 'player',
        left: box.left,
        top: box.top + scrollY,
    };
});

/** Whether the focus is visible: an outline or a ring that is absent without it. */
const focusIsVisible = () => viewer.page.evaluate(() => {
    const element = document.activeElement;
    const look = () => JSON.stringify([element, ...element.querySelectorAll('*')].map((one) => {
        const { outlineStyle, outlineWidth, boxShadow } = getComputedStyle(one);
        return [outlineStyle, outlineWidth, boxShadow];
    }));
    const focused = look();
    element.blur();
    const blurred = look();
    element.focus();
    return focused !== blurred;
});

/** Presses a key until the focus is as wanted. */
async function pressUntil(key, wanted, maxPresses = 60) {
    for (let presses = 0; presses < maxPresses; ++presses) {
        const now = await focus();
        if (wanted(now)) return now;
        await press(key);
        await viewer.settle();
    }
    throw new Error(`${maxPresses} times ${key} did not get there: ${JSON.stringify(await focus())}`);
}

test('from Home to a playing video, and back to the tile that opened it', async () => {
    await viewer.goTo('/');
    await press('ArrowDown');
    await pressUntil('ArrowDown', (now) => now.row === 'New this week');
    const tile = await pressUntil('ArrowRight', (now) => now.kind === 'Video');
    assert.ok(await focusIsVisible());
    await press('Enter');
    await viewer.waitForScreen('video');
    await viewer.waitFor('video#player');
    await press('ArrowDown');
    await pressUntil('ArrowDown', () => viewer.page.evaluate(
        () => document.activeElement.matches('[data-action="play"], #player')), 10);
    await press('Enter');
    await viewer.until(() => document.querySelector('#player').currentTime > 0.5);
    await press('Escape');
    await viewer.waitForScreen('home');
    await viewer.until((href) => document.activeElement.getAttribute('href') === href, tile.href);
    assert.equal((await focus()).row, tile.row);
});

test('the arrows move the focus in two dimensions', async () => {
    await viewer.goTo('/');
    await press('ArrowDown');
    const start = await pressUntil('ArrowDown', (now) => now.row === 'New this week');
    await press('ArrowRight');
    const right = await focus();
    assert.equal(right.row, start.row);
    assert.ok(right.left > start.left);
    await press('ArrowLeft');
    assert.equal((await focus()).href, start.href);
    await press('ArrowDown');
    // The focus moves when the row below has loaded.
    await viewer.until((row) => {
        const now = document.activeElement.closest('section.row');
        return now && now.dataset.row !== row;
    }, start.row);
    const below = await focus();
    assert.ok(below.top > start.top, JSON.stringify(below));
});

test('the focus waits for a row that is still loading, and moves into it when it has loaded', async () => {
    let release;
    const released = new Promise((resolve) => { release = resolve; });
    await viewer.page.setRequestInterception(true);
    viewer.page.on('request', async (request) => {
        if (request.url().includes('/part/collection/')) await released;
        await request.continue();
    });
    await viewer.page.goto(viewer.host.address, { waitUntil: 'domcontentloaded' });
    const signIn = '[data-row="Continue watching"] a';
    await viewer.waitFor(signIn);
    await viewer.page.focus(signIn);
    await press('ArrowDown');
    assert.equal((await focus()).row, 'Continue watching');
    const row = await viewer.page.$eval('section.row[data-state="loading"]', (first) => first.dataset.row);
    release();
    await viewer.until((selector) => !document.activeElement.matches(selector), signIn);
    const { kind, row: reached } = await focus();
    assert.ok(kind);
    assert.equal(reached, row);
    await viewer.settle();
});

test('Backspace goes back like Escape, but not while typing', async () => {
    await viewer.goTo('/');
    await viewer.page.click('nav a[href="/search"]');
    await viewer.waitForScreen('search');
    await viewer.page.focus('#word');
    await viewer.page.keyboard.type('seaa');
    await press('Backspace');
    assert.equal(await viewer.screen(), 'search');
    assert.equal(await viewer.page.$eval('#word', (word) => word.value), 'sea');
    await press('Escape');
    await viewer.waitForScreen('home');
});

test('the Break it panel opens and closes with the keyboard', async () => {
    await viewer.goTo('/');
    await viewer.page.focus('[data-action="break-it"]');
    await press('Enter');
    await viewer.waitFor('aside[data-panel="faults"]');
    await viewer.page.focus('[data-fault="none"]');
    await press('Escape');
    await viewer.page.waitForSelector('aside[data-panel="faults"]', { hidden: true });
    assert.equal(await viewer.screen(), 'home');
});
