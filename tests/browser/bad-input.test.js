// Invalid input gets a clear page, and none of it comes back unescaped.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import net from 'node:net';
import { after, afterEach, before, beforeEach, test } from 'node:test';
import { Television } from './support/Television.js';

let television, viewer;

before(async () => { television = await Television.start(); });
after(() => television?.end());
beforeEach(async () => { viewer = await television.viewer(); });
afterEach(() => viewer.close());

/** Sends bytes unchanged. Resolves to the answer, up to the end of its headers or of the connection. */
function send(bytes) {
    return new Promise((resolve, reject) => {
        const socket = net.connect(Number(television.host.port), '127.0.0.1');
        let answer = '';
        const done = () => {
            socket.destroy();
            resolve(answer);
        };
        socket.on('data', (data) => {
            answer += data;
            if (answer.includes('\r\n\r\n')) done();
        });
        socket.on('close', done);
        // The host may close the connection before it has read everything.
        socket.on('error', (error) => (answer || error.code === 'EPIPE' || error.code === 'ECONNRESET' ? done() : reject(error)));
        socket.write(bytes);
    });
}

const host = () => `Host: 127.0.0.1:${television.host.port}\r\n`;
const statusOf = (answer) => Number(answer.match(/^HTTP\/1\.1 (\d+)/)?.[1]);

const script = encodeURIComponent('"><script>window.wasRun = 1</script><img src=x onerror="window.wasRun = 2">');

for (const path of ['/nothing', `/${script}`, `/search?q=${script}`, `/live?region=${script}`, `/show/${script}`,
    '/show/no-such-show', `/show/harbour-lights?series=${script}`, '/show/https%3A%2F%2Felsewhere.example%2F', '/show', '/video/',
    '/search?q=%zz', `/video/${script}`, `/part/collection/${script}`, '/pictures/https%3A%2F%2Felsewhere.example%2Fx.svg']) {
    test(`${path} gives a page that runs no script from it`, async () => {
        await viewer.page.goto(television.host.address + path, { waitUntil: 'load' });
        await viewer.until(() => document.querySelectorAll('[data-state="loading"]').length === 0 ||
            document.querySelector('[data-state="failed"]'));
        assert.ok((await viewer.text('body')).length > 20);
        assert.equal(await viewer.page.evaluate(() => window.wasRun), undefined);
        assert.equal(await viewer.count('img[src="x"]'), 0);
    });
}

test('a search for markup shows it as it was typed', async () => {
    await viewer.goTo('/search');
    await viewer.page.type('#word', '<b>sea</b> & "more"');
    await viewer.waitFor('#results[data-state="empty"]');
    assert.equal(await viewer.count('#results b'), 0);
});

test('addresses other than files of the service are not fetched', async () => {
    await television.service.clearLog();
    for (const path of ['/pictures/http://127.0.0.1:1/x', '/pictures/a%3Fb', '/v2/home', '/control/log', '/pictures/..%2Fv2/home',
        '/hls/..%2F..%2Fcontrol/log', '/hls/%2e%2e%2fcontrol/log', '/captions/%00', '//elsewhere.example/x']) {
        const answer = await fetch(television.host.address + path);
        assert.ok(answer.status >= 400, `${path}: ${answer.status}`);
    }
    assert.deepEqual(await television.service.log(), []);
});

test('invalid requests are refused, and the host goes on serving', async () => {
    const wrong = {
        'no HTTP': 'nonsense\r\n\r\n',
        'a header of 1 MB': `GET / HTTP/1.1\r\n${host()}X-Large: ${'x'.repeat(1_000_000)}\r\n\r\n`,
        'a path of 1 MB': `GET /${'x'.repeat(1_000_000)} HTTP/1.1\r\n${host()}\r\n`,
        'a path that leads upwards': `GET /../../etc/passwd HTTP/1.1\r\n${host()}\r\n`,
        'another host': 'GET / HTTP/1.1\r\nHost: elsewhere.example\r\n\r\n',
        'another method': `DELETE / HTTP/1.1\r\n${host()}\r\n`,
    };
    for (const [what, bytes] of Object.entries(wrong)) {
        const status = statusOf(await send(bytes));
        // The answer may be lost if the host closes the connection while data is still being sent.
        assert.ok(Number.isNaN(status) || (status >= 400 && status < 500), `${what}: ${status}`);
        assert.equal(statusOf(await send(`GET / HTTP/1.1\r\n${host()}\r\n`)), 200, `after ${what}`);
    }
});

test('a form from another site is refused', async () => {
    for (const path of ['/fault', '/sign-in', '/sign-out', '/save', '/progress', '/profile']) {
        const body = 'name=offline';
        const form = `POST ${path} HTTP/1.1\r\n${host()}Origin: http://elsewhere.example\r\n` +
            `Content-Type: application/x-www-form-urlencoded\r\nContent-Length: ${body.length}\r\n\r\n${body}`;
        assert.equal(statusOf(await send(form)), 403, path);
    }
    await viewer.goTo('/');
    assert.ok(await viewer.count('main .hero') > 0);
});

test('the host listens on loopback only', () => {
    const port = Number(television.host.port).toString(16).toUpperCase().padStart(4, '0');
    const listening = '0A';
    const sockets = ['tcp', 'tcp6'].flatMap((kind) => readFileSync(`/proc/net/${kind}`, 'utf8').split('\n').slice(1))
        .map((line) => line.trim().split(/\s+/))
        .filter(([, local, , state]) => state === listening && local.endsWith(`:${port}`));
    assert.deepEqual(sockets.map(([, local]) => local), [`0100007F:${port}`]);
});
