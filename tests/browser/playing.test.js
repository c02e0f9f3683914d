// The player: the time moves, the quality can be chosen, and the position is saved.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { television, viewer } from './support/ViewerOfEachTest.js';

const video = '/video/HL0102';

const player = () => viewer.page.$eval('#player', ({ currentTime, duration, videoWidth, paused }) =>
    ({ currentTime, duration, videoWidth, paused }));

test('the time moves, and the stream lasts as long as the video', async () => {
    await viewer.goTo(video);
    await viewer.play();
    const { currentTime } = await player();
    await viewer.until((before) => document.querySelector('#player').currentTime > before + 1, currentTime);
    const { duration, paused } = await player();
    assert.equal(paused, false);
    assert.ok(duration > 2_700 && duration < 2_800, `${duration} s`);
});

test('the play button says what it does', async () => {
    const label = (text) => viewer.until((wanted) => document.querySelector('[data-action="play"]').textContent === wanted, text);
    await viewer.goTo(video);
    await label('Play');
    await viewer.play();
    await label('Pause');
    await viewer.press('[data-action="play"]');
    await label('Play');
    assert.equal((await player()).paused, true);
});

test('streams are loaded through the host only', async () => {
    const addresses = [];
    viewer.page.on('request', (request) => addresses.push(request.url()));
    await viewer.goTo(video);
    await viewer.play();
    assert.ok(addresses.some((address) => address.startsWith(`${television.host.address}/hls/`)), addresses.join('\n'));
    const own = addresses.filter((address) => !address.startsWith('blob:') && !address.startsWith('data:'));
    assert.deepEqual(own.filter((address) => !address.startsWith(television.host.address)), []);
});

test('a lower quality continues at the same position with a smaller picture', async () => {
    await viewer.goTo(video);
    await viewer.play();
    assert.equal((await player()).videoWidth, 960);
    const { currentTime } = await player();
    await viewer.press('[data-quality="sd-low"]');
    await viewer.until((before) => {
        const now = document.querySelector('#player');
        return now.videoWidth === 480 && now.currentTime > before;
    }, currentTime);
});

test('the position is saved as progress, and the video resumes from it', async () => {
    await viewer.signIn();
    await viewer.goTo(video);
    await viewer.play();
    await viewer.seek(600);
    await viewer.goTo(video);
    await viewer.waitFor('video#player');
    assert.match(await viewer.text('[data-action="play"]'), /^Resume at 10:0\d$/);
    await viewer.until(() => document.querySelector('#player').currentTime >= 600);
    await viewer.goTo('/');
    await viewer.loadAll();
    const tile = await viewer.page.$('section.row[data-row="Continue watching"] a.tile[href*="HL0102"] [data-progress]');
    assert.ok(tile, 'the video is not in Continue watching');
});
