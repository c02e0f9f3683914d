// ./demo --screen starts the service and the host, and leaves neither running.

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import path from 'node:path';
import readline from 'node:readline';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';

const demo = fileURLToPath(new URL('../../demo', import.meta.url));

/** Runs the demo until it has printed the address of the host. */
async function start(...options) {
    const program = spawn(demo, ['--screen', ...options], { cwd: path.dirname(demo), stdio: ['ignore', 'pipe', 'inherit'] });
    const ended = new Promise((resolve) => program.once('exit', (code, signal) => resolve(signal ?? code)));
    const addresses = [];
    for await (const line of readline.createInterface({ input: program.stdout })) {
        addresses.push(...(line.match(/http:\/\/127\.0\.0\.1:\d+/) ?? []));
        if (line.includes('Living room')) break;
    }
    return { program, ended, addresses };
}

const answers = (address) => fetch(address).then((answer) => answer.ok, () => false);

test('a demo with a time limit ends by itself and leaves nothing listening', async () => {
    const { ended, addresses } = await start('--seconds', '3');
    assert.equal(addresses.length, 2);
    assert.equal(await answers(addresses[1]), true);
    assert.equal(await ended, 0);
    for (const address of addresses) assert.equal(await answers(address), false, address);
});

test('Ctrl-C ends the service and the host', async () => {
    const { program, ended, addresses } = await start('--port', '0');
    assert.equal(await answers(addresses[1]), true);
    program.kill('SIGINT');
    assert.equal(await ended, 0);
    for (const address of addresses) assert.equal(await answers(address), false, address);
});

test('invalid options end it with exit code 2', async () => {
    for (const options of [['--seconds'], ['--seconds', 'x'], ['--port', '-1'], ['--more', '1']]) {
        const { ended } = await start(...options);
        assert.equal(await ended, 2, options.join(' '));
    }
});
