// Validates .glb and .gltf files with the reference glTF validator. Prints every issue of
// error or warning severity; exits 1 when a file has errors, 2 when it cannot be read.
//   node validate.js FILE...
'use strict';

const fs = require('fs');
const path = require('path');
const validator = require('gltf-validator');

const severities = ['error', 'warning', 'info', 'hint'];

async function validate(file) {
  const bytes = new Uint8Array(fs.readFileSync(file));
  const report = await validator.validateBytes(bytes, {
    uri: path.basename(file),
    maxIssues: 0,
    externalResourceFunction: (uri) =>
      fs.promises.readFile(path.resolve(path.dirname(file), decodeURIComponent(uri))),
  });
  const { numErrors, numWarnings, messages } = report.issues;
  console.log(`${file}: ${numErrors} errors, ${numWarnings} warnings`);
  for (const issue of messages) {
    if (issue.severity > 1)
      continue;
    console.log(`  ${severities[issue.severity]} ${issue.code} at ${issue.pointer || '/'}: ${issue.message}`);
  }
  return numErrors === 0;
}

async function main(files) {
  if (files.length === 0) {
    console.error('usage: node validate.js FILE...');
    return 2;
  }
  let clean = true;
  for (const file of files) {
    try {
      clean = (await validate(file)) && clean;
    } catch (error) {
      console.error(`${file}: cannot be validated: ${error.message || error}`);
      return 2;
    }
  }
  return clean ? 0 : 1;
}

main(process.argv.slice(2)).then((code) => process.exit(code));
